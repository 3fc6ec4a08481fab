#pragma once

namespace qv {

/// For programs, which may be told to end in the middle of their work. From CatchInterruptions() on, Ctrl-C,
/// a closed terminal and a request to end (SIGINT, SIGHUP, SIGTERM; on Windows the console's events) no
/// longer end the process at once: files, and where signals would leave them waiting the standard streams,
/// fail from then on, so that the work is given up in the usual way and clears what it has made. A second one
/// ends the process.
void CatchInterruptions();

/// As before CatchInterruptions().
void ReleaseInterruptions();

bool IsInterrupted();

/// Ends the process by the signal that interrupted it. Returns the exit code to end with where there are no
/// signals.
int EndInterrupted();

}  // namespace qv

#pragma once

#include "format/FormatList.h"

#include <optional>
#include <string>

/// The formats of one format file, as a manager or a dialog holds them.
struct FormatConfiguration {
  std::optional<FormatList> Formats;  ///< absent until the first load; replaced by every load
};

/// Reads the XML file at `path` into the configuration. A missing or malformed file gives the default
/// configuration and true, with a diagnostic. False for a null or empty path (the list stays), when the file
/// could be read in part only (which is kept), and when the platform has no XML document to give.
bool LoadFromFile(FormatConfiguration& configuration, const char* path);

/// Writes the configuration to `path`, keeping the old file until the new one is whole. False when a format
/// or an item cannot be written as XML; nothing is written then. A file that cannot be written still gives
/// true. Either failure is told to the diagnostic handler, and put as a reason into `failure` when that is
/// given; empty there means that the file was written. On Windows COM must be initialised on this thread.
bool SaveToFile(const FormatConfiguration& configuration, const char* path, std::string* failure = nullptr);

/// Replaces the list by one that holds the format "Form1" with every known keyword, none of them a column.
bool CreateDefaultConfiguration(FormatConfiguration& configuration);

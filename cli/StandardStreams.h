#pragma once

#include "cli/Program.h"
#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <string_view>

namespace qv {

enum class StandardStream { Input, Output };

/// What the library knows a standard stream by: a path that no file can have, with the type as its extension.
std::string PathOfStream(StandardStream stream, const std::string& type);

bool IsStandardStream(std::string_view path);

/// The path for a person: "standard input" for the one of that stream.
std::string ShownPath(std::string_view path);

/// Lets the library read standard input and write standard output by these paths, for as long as it lives.
/// The start of standard input can be read any number of times, what follows it once. An output that is held
/// back appears when it is whole, as a file does.
std::unique_ptr<FileSystem> WithStandardStreams(const Streams& streams, bool holdsOutput);

}  // namespace qv

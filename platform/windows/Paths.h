#pragma once

#include <string>

namespace qv {

/// The absolute path of `path`, in a form that the wide functions take at any length; empty for an empty
/// path.
std::wstring FullPath(const std::string& path);

/// The whole path in the file's own spelling: long names for short ones, and the target of a link. The
/// path itself where nothing exists.
std::wstring RealPath(const std::wstring& path);

/// The path in the narrow form of the library, without the prefix of long paths. Where the code page cannot
/// hold it, the short name of what exists stands in; empty when there is none.
std::string NarrowPath(const std::wstring& path);

/// The folder of a path, with its closing separator.
std::wstring FolderOf(const std::wstring& path);

std::wstring FileNameOf(const std::wstring& path);

/// ".txt"; empty when the name has none.
std::wstring ExtensionOf(const std::wstring& path);

/// Whether the path leads to a device or a pipe instead of into a folder.
bool IsDevice(const std::wstring& path);

}  // namespace qv

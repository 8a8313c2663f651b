// The documents and tables made by others that the library is checked against.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace KestXmlLib20 {

/// What KESTXML_DATA names in the environment, else ../shared/data; both as seen from the project's
/// folder. It may be absent.
std::filesystem::path TestDataFolder();

/// All bytes of a file; empty for one that can't be read.
std::string ReadBytes(std::filesystem::path const& file);

/// The regular files at any depth of a folder, as sorted paths from there; none when it is absent.
std::vector<std::filesystem::path> FilesBelow(std::filesystem::path const& folder);

/// The lines of a file, cut at tabs, with the escapes \t \n \r \\ resolved in each field.
std::vector<std::vector<std::string>> ReadRows(std::filesystem::path const& file);

}  // namespace KestXmlLib20

// Writing an object to files, reading it again, and reading it from a broken file.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

#include "kestxml/kestxml.h"

namespace KestDemo {

/// A directory for the files of this run, removed at its end.
class CTemporaryDirectory {
 public:
  CTemporaryDirectory();
  CTemporaryDirectory(CTemporaryDirectory const&) = delete;
  CTemporaryDirectory& operator=(CTemporaryDirectory const&) = delete;
  ~CTemporaryDirectory();

  std::filesystem::path operator/(char const* name) const { return m_path / name; }

 private:
  std::filesystem::path m_path;
};

/// What @p work takes, in milliseconds.
double Milliseconds(std::function<void()> const& work);

/// Writes a copy of @p file, which must be XML text without comments and CDATA, in which the first
/// tag behind the middle begins with two angle brackets.
void WriteBroken(std::filesystem::path const& file, std::filesystem::path const& broken);

/// Prints one row: a file's kind, its size, the times, and whether what it holds was equal.
void PrintRow(std::ostream& out, char const* kind, std::filesystem::path const& file,
              double written, double read, bool isEqual);

/// Writes @p original to a file, reads that into a new object and compares the two.
/// @returns whether they are equal.
template <typename Object>
bool ShowRoundTrip(std::ostream& out, Object const& original, char const* kind,
                   std::filesystem::path const& file, KestXmlLib20::CompressionType compression) {
  using namespace KestXmlLib20;
  auto const& context = CSerializationContext::GetDefaultContext();
  std::u16string const name = file.u16string();
  Object copy;
  double const written = Milliseconds([&] {
    original.ToXmlFile(name.c_str(), true, Object::kMayBeIndented, XmlEncoding_UTF8, EOLType_LF,
                       context, compression);
  });
  double const read = Milliseconds([&] { copy.FromXmlFile(name.c_str(), context); });
  bool const isEqual = copy == original;
  PrintRow(out, kind, file, written, read, isEqual);
  return isEqual;
}

}  // namespace KestDemo

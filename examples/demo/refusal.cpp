#include "examples/demo/refusal.h"

#include <string>

#include "kestxml/kestxml.h"

namespace KestDemo {

using namespace KestXmlLib20;

bool ShowRefused(std::ostream& out, char const* title, std::function<void()> const& work) try {
  out << '\n' << title << "\n\n";
  work();
  out << "  It was accepted. That is a fault of the library.\n";
  return false;
} catch (CKestException const& failure) {
  std::string message = ToUtf8(failure.GetFullMessage());
  for (std::size_t end = 0; (end = message.find('\n', end)) != std::string::npos; end += 5)
    message.replace(end, 1, "\n    ");
  out << "    " << message << '\n';
  return true;
}

}  // namespace KestDemo

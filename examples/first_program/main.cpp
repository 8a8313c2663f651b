#include <kestxml/kestxml.h>

#include <iostream>

int main() {
  std::cout << KestXmlLib20::ToUtf8(u"Hello, 世界!") << '\n';
}

#include "kestxml/document/async_output.h"

namespace KestXmlLib20 {
namespace {
bool asyncToXmlFile = false;
}

void AsyncToXmlFile(bool async) {
  asyncToXmlFile = async;
}
bool GetAsyncToXmlFile() {
  return asyncToXmlFile;
}

}  // namespace KestXmlLib20

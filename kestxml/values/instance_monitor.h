// The empty root class of most of the library's classes.
#pragma once

#include "kestxml/platform/api.h"

/// A seam where instances could be counted; it counts nothing.
class KESTXML_API CInstanceMonitor {
 public:
  CInstanceMonitor() = default;
  explicit CInstanceMonitor(char16_t const* /*name*/) {}
  CInstanceMonitor(CInstanceMonitor const&) {}
  CInstanceMonitor& operator=(CInstanceMonitor const&) { return *this; }
  virtual ~CInstanceMonitor() = default;
};

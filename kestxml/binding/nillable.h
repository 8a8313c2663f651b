// Classes whose element may be nil.
#pragma once

#include "kestxml/platform/api.h"

namespace KestXmlLib20 {

/// Implemented beside CXmlGeneratedClass by classes whose element may carry xsi:nil. A class
/// without it refuses the attribute. It must be a public base, and Init must take nil back: an
/// object that is nil before its content is looked at has none.
class KESTXML_API INillable {
 public:
  virtual bool IsNil() = 0;
  virtual void SetNil(bool nil) = 0;

 protected:
  INillable() = default;
  INillable(INillable const&) = default;
  INillable& operator=(INillable const&) = default;
  ~INillable() = default;
};

}  // namespace KestXmlLib20

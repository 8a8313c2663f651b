// A place in a collection of objects.
#pragma once

#include "kestxml/binding/xml_object_base.h"
#include "kestxml/values/smart_ptr.h"

namespace KestXmlLib20 {

/// One member of the doubly linked list of a CXmlCollection. It holds one reference to its item,
/// which is never null.
struct CNode {
  CSmartPtr<CXmlObjectBase> m_pItem;
  CNode* m_pNext = nullptr;
  CNode* m_pPrev = nullptr;
};

}  // namespace KestXmlLib20

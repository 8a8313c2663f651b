// Bounds on reads and writes of generated classes that the depth of the document does not set.
#pragma once

#include <cstdint>

namespace KestXmlLib20 {
class CSerializationContext;
class CXmlElement;
}  // namespace KestXmlLib20

namespace KestXmlLib20::internal {

/// One call that reads or writes an object without an element of its own. Such objects can hold
/// each other without end where a document, or what is written, gets no deeper. As many may be
/// open on a thread as the context allows elements to be nested.
class GroupLevel {
 public:
  /// @param element where the group stands; null when there is no place to report.
  /// @throws CKestException when too many are open.
  GroupLevel(bool isGroup, CSerializationContext const& context, CXmlElement const* element);
  GroupLevel(GroupLevel const&) = delete;
  GroupLevel& operator=(GroupLevel const&) = delete;
  ~GroupLevel();

 private:
  bool m_isGroup;
};

/// One call that reads an object. It counts the work on it, for the case that it was in vain: a
/// group that is not found gives everything back to its parent, which, ignoring unknown elements,
/// passes over one and lets the group search again. Groups in groups would raise that to a power
/// of the number of elements.
class ReadLevel {
 public:
  ReadLevel(bool isGroup, CSerializationContext const& context, CXmlElement const* element);
  ReadLevel(ReadLevel const&) = delete;
  ReadLevel& operator=(ReadLevel const&) = delete;
  ~ReadLevel();

  /// To be called when the object leaves to its parent all that it looked at.
  /// @throws CKestException when the outermost object has lost too much in this way.
  void Abandon() const;

 private:
  GroupLevel m_group;
  CSerializationContext const& m_context;
  CXmlElement const* m_element;
  std::uint64_t m_workBefore;
};

/// Counts an element that is passed over as unknown, and gives the next.
CXmlElement* PassOver(CXmlElement const& element);

}  // namespace KestXmlLib20::internal

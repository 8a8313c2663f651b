// A document inside of another.
#pragma once

#include <cstdint>
#include <functional>

namespace KestXmlLib20 {

class CXmlTextWriter;

namespace internal {

/// Puts a block into the document that @p outer writes, as a child of its open element: what
/// @p write writes with the text writer that it is given. That one knows nothing of the outer
/// document's namespaces and indentation, so its root can declare what otherwise only the root of
/// all can. Blocks may hold blocks.
/// @param maxDepth how many elements may be nested in each other, those around the block included.
/// @throws CKestException beyond that.
void WriteBlock(CXmlTextWriter& outer, std::uint32_t maxDepth,
                std::function<void(CXmlTextWriter& block)> const& write);

}  // namespace internal
}  // namespace KestXmlLib20

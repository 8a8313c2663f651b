// The documents that are measured: orders with items, notes and prices, the same bytes everywhere.
#pragma once

#include <cstddef>
#include <string>

namespace KestBench {

/// The orders document: orders of 1 to 8 items until they fill @p bytes, in UTF-8. Nine words of a
/// note in a hundred are an entity or outside ASCII. The bytes are the same on every machine; of
/// the default size their SHA-256 begins with dac73be63e2b48aa.
std::string MakeOrders(std::size_t bytes = 30'000'000);

/// One order of 21 items, 3,946 bytes; their SHA-256 begins with 1ba17bed7613e8c4.
std::string MakeSmallOrder();

}  // namespace KestBench

#include "bench/support/orders_document.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

// FNV-1a of 64 bits.
std::uint64_t HashOf(std::string const& bytes) {
  std::uint64_t hash = 0xcbf29ce484222325U;
  for (char const c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
  return hash;
}

TEST(OrdersDocument, HasTheSameBytesEverywhere) {
  std::string const orders = KestBench::MakeOrders();
  EXPECT_EQ(orders.size(), 30'001'461U);
  EXPECT_EQ(HashOf(orders), 0x68a13f9de1b1b338U);
  std::string const order = KestBench::MakeSmallOrder();
  EXPECT_EQ(order.size(), 3'946U);
  EXPECT_EQ(HashOf(order), 0x6f95276c9e992024U);
}

}  // namespace

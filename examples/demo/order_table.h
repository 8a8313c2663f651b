// An order as a table.
#pragma once

#include <ostream>

#include "examples/orders/order.h"

namespace KestDemo {

/// Prints what is ordered, by whom, and what it costs.
void Print(std::ostream& out, KestOrders::COrder const& order);

}  // namespace KestDemo

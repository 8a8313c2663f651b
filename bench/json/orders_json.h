// The measured documents as JSON.
#pragma once

#include <string>

#include "bench/binding/orders_model.h"
#include "bench/support/measure.h"

namespace KestBench {

/// The objects of an orders document. Quotation marks and backslashes are left out, so that what is
/// written of them is JSON to any reader.
CSmartPtr<COrders> ReadForJson(BenchDocument const& document);

/// Those objects as the library writes them, indented with two blanks. Valid until the process
/// ends.
std::string const& JsonOf(BenchDocument const& document);

/// The context that they are written with.
CSerializationContext MakeOrdersContext();

}  // namespace KestBench

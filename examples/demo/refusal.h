// What the library refuses, and why.
#pragma once

#include <functional>
#include <ostream>

namespace KestDemo {

/// Runs @p work, which must be refused, and prints why.
/// @returns whether it was refused.
bool ShowRefused(std::ostream& out, char const* title, std::function<void()> const& work);

}  // namespace KestDemo

// Purchase orders: read, shown, changed, written, and what invalid ones give.
#pragma once

#include <filesystem>
#include <ostream>

namespace KestDemo {

/// The whole story with the order of the examples.
/// @returns whether all went as it should.
bool TellOrderStory(std::ostream& out, std::filesystem::path const& file);

/// The same without changes and failures, for an order of the user's.
bool ShowOrder(std::ostream& out, std::filesystem::path const& file);

}  // namespace KestDemo

// A purchase order as JSON.
#pragma once

#include <filesystem>
#include <ostream>

namespace KestDemo {

/// Writes the order of the examples in the three modes, and shows what comes back of which order
/// and what broken JSON gives.
/// @returns whether all went as it should.
bool TellJsonStory(std::ostream& out, std::filesystem::path const& file);

}  // namespace KestDemo

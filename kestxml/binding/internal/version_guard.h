// The guard against generated code of another version than the library's.
#pragma once

namespace KestXmlLib20::internal {

/// Shows the mismatch, if there is one, for the first object of the process; later calls do
/// nothing.
void CheckVersionOfFirstObject();

/// @throws CKestException, after showing the mismatch, when the registered version does not fit.
void CheckVersion();

}  // namespace KestXmlLib20::internal

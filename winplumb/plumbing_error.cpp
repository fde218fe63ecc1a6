#include "winplumb/plumbing_error.hpp"

#include "common/control_error.hpp"

namespace tarnbrook {

void RaisePlumbingError(int32_t code, const std::string& where, const std::string& description) {
  throw ControlError(ObjectError(code), std::string(LibraryFileName) + "." + where, description);
}

} // namespace tarnbrook

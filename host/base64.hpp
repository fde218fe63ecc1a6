#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnbrook {

// Standard base64 with padding.
std::string EncodeBase64(const std::vector<uint8_t>& bytes);
// Nothing when the text is not base64.
std::optional<std::vector<uint8_t>> DecodeBase64(std::string_view text);

} // namespace tarnbrook

#pragma once

// Whether this is a build under AddressSanitizer, where all takes many times as long and freed
// memory is kept.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
constexpr bool isSanitized = __has_feature(address_sanitizer);
#else
constexpr bool isSanitized = false;
#endif

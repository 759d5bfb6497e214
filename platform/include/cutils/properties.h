// The part of the Android system properties that libsimulation uses. On a
// device the platform's own header of this name is used instead.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The integer that the property `key` holds, or `default_value` when it is
/// unset, no number, or does not fit 32 bits.
int32_t property_get_int32(const char* key, int32_t default_value);

#ifdef __cplusplus
}
#endif

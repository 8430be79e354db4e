#include "checksum.h"

uint32_t adler32(const void *bytes, size_t size)
{
    const uint8_t *at = bytes;
    uint32_t low = 1;
    uint32_t high = 0;
    while (size-- > 0) {
        low = (low + *at++) % 65521;
        high = (high + low) % 65521;
    }
    return high << 16 | low;
}

#include "checksum.h"

uint32_t crc32(const void *bytes, size_t size)
{
    const uint8_t *at = bytes;
    uint32_t crc = 0xffffffffu;
    while (size-- > 0) {
        crc ^= *at++;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1 ? 0xedb88320u : 0);
    }
    return ~crc;
}

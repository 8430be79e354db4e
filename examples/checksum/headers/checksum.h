#ifndef CHECKSUM_H
#define CHECKSUM_H

#include <stddef.h>
#include <stdint.h>

uint32_t crc32(const void *bytes, size_t size);
uint32_t adler32(const void *bytes, size_t size);

#endif

#include "checksum.h"

#include <inttypes.h>
#include <stdio.h>
#include <string.h>

int main(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        const size_t size = strlen(argv[i]);
        printf("%08" PRIx32 " %08" PRIx32 " %s\n", crc32(argv[i], size), adler32(argv[i], size),
               argv[i]);
    }
    return 0;
}

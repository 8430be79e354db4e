#include "part.h"

int twice(int n);

int main(void)
{
    int unused;
    part p = 3;
    return twice(p)
}

/* What the C example takes from the C runtime, declared here so that it compiles where no Windows SDK is. */
#include <stddef.h>

typedef struct FILE {
  char opaque[48];
} FILE;
FILE* __iob_func(void);
#define stderr (__iob_func() + 2)
int printf(const char* format, ...);
int fprintf(FILE* file, const char* format, ...);

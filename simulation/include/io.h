#pragma once

#include <cstdio>

typedef int errno_t;

extern "C" {

int _fileno(FILE* stream);
int _dup2(int from, int to);
errno_t freopen_s(FILE** stream, const char* path, const char* mode, FILE* reopened);

}  // extern "C"

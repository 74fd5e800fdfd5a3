#pragma once
#include <cstdio>
extern FILE* stderr_write;

// SPDX-License-Identifier: MIT
// On Apple's systems the functions that take a locale are declared here, elsewhere with their families, if at
// all.
#pragma once

#include <locale.h>
#include <stddef.h>
#include <stdlib.h>
#include <wchar.h>

typedef unsigned __uint32_t;

#define _CTYPE_A 0x00000100L
#define _CTYPE_C 0x00000200L
#define _CTYPE_D 0x00000400L
#define _CTYPE_G 0x00000800L
#define _CTYPE_L 0x00001000L
#define _CTYPE_P 0x00002000L
#define _CTYPE_S 0x00004000L
#define _CTYPE_U 0x00008000L
#define _CTYPE_X 0x00010000L
#define _CTYPE_B 0x00020000L
#define _CTYPE_R 0x00040000L

extern "C" {
int asprintf_l(char **result, locale_t locale, const char *format, ...);
int snprintf_l(char *result, size_t size, locale_t locale, const char *format, ...);
int sscanf_l(const char *text, locale_t locale, const char *format, ...);
long long strtoll_l(const char *text, char **end, int base, locale_t locale);
unsigned long long strtoull_l(const char *text, char **end, int base, locale_t locale);
}

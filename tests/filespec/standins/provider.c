/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A network provider library with a few mapped drives:
 *   H: \\srv\share        I: \\srv\deep\share\\\         J: \\srv\ and U+00E4, narrow E4
 *   K: a name that fills the 512 bytes of the answer     L: one character more, which fails
 * Anything but a drive's root, the level 1 and 512 bytes of room is refused. */
#include <string.h>
#include <windows.h>

#define ANSWER_BYTES 512
#define UNIVERSAL_NAME 1 /* the level */

static int calls = 0;

__declspec(dllexport) int standin_calls(void) {
  return calls;
}

/* Characters of the longest name whose record, text and terminator fit the answer. */
static int longest(int char_size) {
  return (ANSWER_BYTES - (int)sizeof(void*)) / char_size - 1;
}

/* The name of a drive in one unit a character; its length, or 0. */
static int name_of(unsigned letter, int char_size, unsigned char name[ANSWER_BYTES + 1]) {
  static const char* const names[] = {"\\\\srv\\share", "\\\\srv\\deep\\share\\\\\\", "\\\\srv\\\xE4"};
  int length;
  if (letter >= 'H' && letter <= 'J') {
    strcpy((char*)name, names[letter - 'H']);
  } else if (letter == 'K' || letter == 'L') {
    length = longest(char_size) + (letter == 'L');
    memset(name, 'n', (size_t)length);
    memcpy(name, "\\\\srv\\", 6);
    name[length] = 0;
  } else {
    return 0;
  }
  return (int)strlen((char*)name);
}

static DWORD answer(unsigned letter, int is_root, DWORD level, void* room, DWORD* bytes, int char_size) {
  unsigned char name[ANSWER_BYTES + 1];
  int i, length;
  ++calls;
  if (!is_root || level != UNIVERSAL_NAME || *bytes != ANSWER_BYTES) return ERROR_INVALID_PARAMETER;
  length = name_of(letter, char_size, name);
  if (length == 0) return ERROR_NOT_CONNECTED;
  if (length > longest(char_size)) return ERROR_MORE_DATA;
  *(void**)room = (char*)room + sizeof(void*);
  for (i = 0; i <= length; ++i) {
    if (char_size == 2) {
      ((WCHAR*)((char*)room + sizeof(void*)))[i] = name[i];
    } else {
      ((unsigned char*)room + sizeof(void*))[i] = name[i];
    }
  }
  return NO_ERROR;
}

__declspec(dllexport) DWORD WINAPI
    WNetGetUniversalNameW(LPCWSTR path, DWORD level, LPVOID room, LPDWORD bytes) {
  return answer(path[0], wcscmp(path + 1, L":\\") == 0, level, room, bytes, 2);
}

__declspec(dllexport) DWORD WINAPI
    WNetGetUniversalNameA(LPCSTR path, DWORD level, LPVOID room, LPDWORD bytes) {
  return answer((unsigned char)path[0], strcmp(path + 1, ":\\") == 0, level, room, bytes, 1);
}

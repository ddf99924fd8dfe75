#pragma once

#include <cstdint>
#include <cstring>

typedef struct _GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
} GUID;
typedef GUID IID;
typedef GUID CLSID;

#define REFGUID const GUID&
#define REFIID const IID&
#define REFCLSID const CLSID&

inline bool operator==(REFGUID one, REFGUID other) { return std::memcmp(&one, &other, sizeof(GUID)) == 0; }

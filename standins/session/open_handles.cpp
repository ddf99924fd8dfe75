#include "session/open_handles.h"

#include <windows.h>
// windows.h first: winternl.h builds on it.
#include <winternl.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace orvane::standins {
namespace {

constexpr auto systemHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr NTSTATUS tooShort = static_cast<NTSTATUS>(0xC0000004);
constexpr std::size_t firstBytes = std::size_t{1} << 16;
constexpr std::size_t greatestBytes = std::size_t{1} << 26;

// The table as the system gives it: a count, and that many entries.
struct HandleEntry {
  ULONG owner;
  std::uint8_t objectType;
  std::uint8_t flags;
  USHORT value;
  void* object;
  ACCESS_MASK access;
};
constexpr std::size_t entriesOffset = sizeof(void*);

using QuerySystemInformation = NTSTATUS NTAPI(SYSTEM_INFORMATION_CLASS, PVOID, ULONG, PULONG);

// Empty when it can't be read.
std::vector<std::byte> readTable() {
  const auto query = reinterpret_cast<QuerySystemInformation*>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
  if (query == nullptr) return {};
  for (std::size_t bytes = firstBytes; bytes <= greatestBytes; bytes *= 2) {
    std::vector<std::byte> table(bytes);
    const NTSTATUS status = query(systemHandleInformation, table.data(), static_cast<ULONG>(bytes), nullptr);
    if (status == 0) return table;
    if (status != tooShort) break;
  }
  return {};
}

}  // namespace

long countHandles(const std::string& processId) {
  DWORD process = 0;
  const char* const end = processId.data() + processId.size();
  if (std::from_chars(processId.data(), end, process).ptr != end) return -1;
  const std::vector<std::byte> table = readTable();
  if (table.empty()) return -1;
  ULONG count = 0;
  std::memcpy(&count, table.data(), sizeof count);
  std::vector<HandleEntry> entries(std::min<std::size_t>(count, (table.size() - entriesOffset) / sizeof(HandleEntry)));
  std::memcpy(entries.data(), table.data() + entriesOffset, entries.size() * sizeof(HandleEntry));
  return static_cast<long>(
      std::count_if(entries.begin(), entries.end(), [process](const auto& entry) { return entry.owner == process; }));
}

}  // namespace orvane::standins

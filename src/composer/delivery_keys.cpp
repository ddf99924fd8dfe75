#include "composer/delivery_keys.h"

#include <windows.h>

#include <array>

#include "composer/key_events.h"

namespace orvane {
namespace {

struct KeyStroke {
  WORD virtualKey;
  bool isUp;
};

constexpr WORD letterA = 0x41;
constexpr WORD letterV = 0x56;

constexpr std::array<KeyStroke, 2> enterStrokes{{{VK_RETURN, false}, {VK_RETURN, true}}};
constexpr std::array<KeyStroke, 4> selectAllStrokes{
    {{VK_CONTROL, false}, {letterA, false}, {letterA, true}, {VK_CONTROL, true}}};
constexpr std::array<KeyStroke, 4> pasteStrokes{
    {{VK_CONTROL, false}, {letterV, false}, {letterV, true}, {VK_CONTROL, true}}};

template <std::size_t count>
bool sendStrokes(const std::array<KeyStroke, count>& strokes) {
  std::array<INPUT, count> events{};
  for (std::size_t index = 0; index < count; ++index) {
    events[index] = makeKeyEvent(strokes[index].virtualKey, strokes[index].isUp);
  }
  return ::SendInput(static_cast<UINT>(count), events.data(), sizeof(INPUT)) == count;
}

}  // namespace

bool sendEnterKey() { return sendStrokes(enterStrokes); }

bool sendSelectAllKeys() { return sendStrokes(selectAllStrokes); }

bool sendPasteKeys() { return sendStrokes(pasteStrokes); }

}  // namespace orvane

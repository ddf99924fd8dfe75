#include "world/desktop.h"

namespace orvane::simulation {
namespace {

// Virtual key codes.
constexpr int keyA = 'A';
constexpr int keyV = 'V';
constexpr int shiftKey = 0x10;
constexpr int controlKey = 0x11;
constexpr int altKey = 0x12;
constexpr int leftShiftKey = 0xA0;
constexpr int rightShiftKey = 0xA1;
constexpr int leftControlKey = 0xA2;
constexpr int rightControlKey = 0xA3;
constexpr int leftAltKey = 0xA4;
constexpr int rightAltKey = 0xA5;

constexpr KeyChord selectAllChord{keyA, true, false, false};
constexpr KeyChord pasteChord{keyV, true, false, false};

}  // namespace

bool Desktop::isKeyDown(int virtualKey) const {
  const auto index = static_cast<std::size_t>(virtualKey);
  return virtualKey >= 0 && index < keysDown_.size() && keysDown_[index];
}

KeyChord Desktop::chordOf(int virtualKey) const {
  const auto isHeld = [this](int key, int left, int right) {
    return isKeyDown(key) || isKeyDown(left) || isKeyDown(right);
  };
  return {virtualKey, isHeld(controlKey, leftControlKey, rightControlKey),
          isHeld(shiftKey, leftShiftKey, rightShiftKey), isHeld(altKey, leftAltKey, rightAltKey)};
}

void Desktop::key(int virtualKey, bool up, int batch) {
  Window* window = foreground_;
  Element* focused = focusedElement();
  keyEvents_.push_back({clock_.nowMs(), window == nullptr ? std::string{} : window->id,
                        focused == nullptr ? std::nullopt : reportName(*focused), virtualKey, up, batch});
  const auto index = static_cast<std::size_t>(virtualKey);
  if (virtualKey >= 0 && index < keysDown_.size()) keysDown_[index] = !up;
  if (up || window == nullptr) return;
  const KeyChord chord = chordOf(virtualKey);
  if (focused != nullptr) editByKey(*focused, chord);
  const std::string pasteInto = focused != nullptr && chord == pasteChord ? focused->facts.id : std::string{};
  fire(*window, [&](const Trigger& on) {
    if (on.kind == Trigger::Kind::paste) return !pasteInto.empty() && on.element == pasteInto;
    return on.kind == Trigger::Kind::key && on.chord == chord;
  });
}

void Desktop::editByKey(Element& element, const KeyChord& chord) {
  const ElementFacts facts = factsOf(element);
  if (facts.controlType != control_type::edit || !facts.enabled || !facts.value) return;
  if (chord == selectAllChord) element.allSelected = true;
  if (chord == pasteChord) paste(element);
}

void Desktop::paste(Element& element) {
  if (clipboard.content.lockedBy || !clipboard.content.text) return;
  const Text before = element.allSelected ? Text{} : factsOf(element).value.value_or(Text{});
  writeValue(element, before + *clipboard.content.text);
}

}  // namespace orvane::simulation

#include <algorithm>
#include <utility>

#include "windows/com.h"
#include "windows/spelling.h"
#include "windows/task_memory.h"

namespace orvane::simulation {
namespace {

constexpr IID spellingErrorInterface = {0xB7C82D61, 0xFBE8, 0x4B47, {0x9B, 0x27, 0x6C, 0x0D, 0x2E, 0x0D, 0xE0, 0xA3}};
constexpr IID enumSpellingErrorInterface = {
    0x803E3BD4, 0x2828, 0x4410, {0x82, 0x90, 0x41, 0x8D, 0x1D, 0x73, 0xC7, 0x62}};
constexpr IID enumStringInterface = {0x00000101, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// An error that takes up the whole text.
class SpellingError final : public ComObject<ISpellingError> {
 public:
  explicit SpellingError(ULONG textUnits) : ComObject(spellingErrorInterface), textUnits_(textUnits) {}

  HRESULT get_StartIndex(ULONG* index) override { return give("ISpellingError::get_StartIndex", ULONG{0}, index); }
  HRESULT get_Length(ULONG* length) override { return give("ISpellingError::get_Length", textUnits_, length); }
  HRESULT get_CorrectiveAction(CORRECTIVE_ACTION* action) override {
    return give("ISpellingError::get_CorrectiveAction", CORRECTIVE_ACTION_GET_SUGGESTIONS, action);
  }
  HRESULT get_Replacement(LPWSTR*) override { stopRun("ISpellingError::get_Replacement", "isn't modelled"); }

 private:
  template <typename Fact>
  HRESULT give(std::string_view call, Fact fact, Fact* out) const {
    if (const auto refused = refusalOf(call, nullptr, nullptr)) return endInto(*refused, out);
    if (out == nullptr) return E_POINTER;
    *out = fact;
    return S_OK;
  }

  ULONG textUnits_;
};

class SpellingErrors final : public ComObject<IEnumSpellingError> {
 public:
  SpellingErrors(bool isWrong, ULONG textUnits)
      : ComObject(enumSpellingErrorInterface), hasNext_(isWrong), textUnits_(textUnits) {}

  HRESULT Next(ISpellingError** error) override {
    if (const auto refused = refusalOf("IEnumSpellingError::Next", nullptr, nullptr)) return endInto(*refused, error);
    if (error == nullptr) return E_POINTER;
    if (!std::exchange(hasNext_, false)) return endInto(S_FALSE, error);
    *error = makeComObject<SpellingError>(textUnits_);
    return S_OK;
  }

 private:
  bool hasNext_;
  ULONG textUnits_;
};

class StringList final : public ComObject<IEnumString> {
 public:
  explicit StringList(std::vector<Text> strings) : ComObject(enumStringInterface), strings_(std::move(strings)) {}

  HRESULT Next(ULONG count, LPOLESTR* strings, ULONG* fetched) override {
    if (const auto refused = refusalOf("IEnumString::Next", nullptr, nullptr)) {
      endInto(*refused, fetched);
      return endInto(*refused, count == 0 ? nullptr : strings);
    }
    if (strings == nullptr) return E_POINTER;
    if (count != 1 && fetched == nullptr) return E_INVALIDARG;
    std::fill_n(strings, count, nullptr);
    const auto given = static_cast<ULONG>(std::min<std::size_t>(count, strings_.size() - next_));
    for (ULONG index = 0; index < given; ++index) strings[index] = makeTaskString(strings_[next_++]);
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }

  HRESULT Skip(ULONG) override { stopRun("IEnumString::Skip", "isn't modelled"); }
  HRESULT Reset() override { stopRun("IEnumString::Reset", "isn't modelled"); }
  HRESULT Clone(IEnumString**) override { stopRun("IEnumString::Clone", "isn't modelled"); }

 private:
  std::vector<Text> strings_;
  std::size_t next_ = 0;
};

}  // namespace

IEnumSpellingError* makeSpellingErrors(bool isWrong, ULONG textUnits) {
  return makeComObject<SpellingErrors>(isWrong, textUnits);
}

IEnumString* makeStringList(std::vector<Text> strings) { return makeComObject<StringList>(std::move(strings)); }

}  // namespace orvane::simulation

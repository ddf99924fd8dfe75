#pragma once

#include <windows.h>
// windows.h first: the next two build on it.
#include <objidl.h>
#include <spellcheck.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "world/text.h"

namespace orvane::simulation {

inline constexpr IID spellingErrorInterface = {
    0xB7C82D61, 0xFBE8, 0x4B47, {0x9B, 0x27, 0x6C, 0x0D, 0x2E, 0x0D, 0xE0, 0xA3}};
inline constexpr IID enumSpellingErrorInterface = {
    0x803E3BD4, 0x2828, 0x4410, {0x82, 0x90, 0x41, 0x8D, 0x1D, 0x73, 0xC7, 0x62}};
inline constexpr IID enumStringInterface = {
    0x00000101, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// What a checker gives out. `Server` tells how the objects of whoever makes them live:
//   template <typename Interface> using Object = …;   counts references, made from the interface's id; its
//                                                     refusalOf(call, …) says why a call ends at once
//   template <typename Made> static Made* make(…);    with one reference
//   static HRESULT endInto(HRESULT, Value* out);      what a call gives when it fails
//   static LPWSTR makeTaskString(const Text&);        which the caller frees with CoTaskMemFree
//   static HRESULT answerUnused(const char* call);    for what the host never calls

// An error that takes up the whole text.
template <typename Server>
class SpellingError final : public Server::template Object<ISpellingError> {
 public:
  explicit SpellingError(ULONG textUnits)
      : Server::template Object<ISpellingError>(spellingErrorInterface), textUnits_(textUnits) {}

  HRESULT STDMETHODCALLTYPE get_StartIndex(ULONG* index) override {
    return give("ISpellingError::get_StartIndex", ULONG{0}, index);
  }
  HRESULT STDMETHODCALLTYPE get_Length(ULONG* length) override {
    return give("ISpellingError::get_Length", textUnits_, length);
  }
  HRESULT STDMETHODCALLTYPE get_CorrectiveAction(CORRECTIVE_ACTION* action) override {
    return give("ISpellingError::get_CorrectiveAction", CORRECTIVE_ACTION_GET_SUGGESTIONS, action);
  }
  HRESULT STDMETHODCALLTYPE get_Replacement(LPWSTR*) override {
    return Server::answerUnused("ISpellingError::get_Replacement");
  }

 private:
  template <typename Fact>
  HRESULT give(const char* call, Fact fact, Fact* out) const {
    if (const auto refused = this->refusalOf(call, nullptr, nullptr)) return Server::endInto(*refused, out);
    if (out == nullptr) return E_POINTER;
    *out = fact;
    return S_OK;
  }

  ULONG textUnits_;
};

// The errors of a text: one over all of it, or none.
template <typename Server>
class SpellingErrors final : public Server::template Object<IEnumSpellingError> {
 public:
  SpellingErrors(bool isWrong, ULONG textUnits)
      : Server::template Object<IEnumSpellingError>(enumSpellingErrorInterface),
        hasNext_(isWrong),
        textUnits_(textUnits) {}

  HRESULT STDMETHODCALLTYPE Next(ISpellingError** error) override {
    if (const auto refused = this->refusalOf("IEnumSpellingError::Next", nullptr, nullptr)) {
      return Server::endInto(*refused, error);
    }
    if (error == nullptr) return E_POINTER;
    if (!std::exchange(hasNext_, false)) return Server::endInto(S_FALSE, error);
    *error = Server::template make<SpellingError<Server>>(textUnits_);
    return S_OK;
  }

 private:
  bool hasNext_;
  ULONG textUnits_;
};

template <typename Server>
class StringList final : public Server::template Object<IEnumString> {
 public:
  explicit StringList(std::vector<Text> strings)
      : Server::template Object<IEnumString>(enumStringInterface), strings_(std::move(strings)) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, LPOLESTR* strings, ULONG* fetched) override {
    if (const auto refused = this->refusalOf("IEnumString::Next", nullptr, nullptr)) {
      Server::endInto(*refused, fetched);
      return Server::endInto(*refused, count == 0 ? nullptr : strings);
    }
    if (strings == nullptr) return E_POINTER;
    if (count != 1 && fetched == nullptr) return E_INVALIDARG;
    std::fill_n(strings, count, nullptr);
    const auto given = static_cast<ULONG>(std::min<std::size_t>(count, strings_.size() - next_));
    for (ULONG index = 0; index < given; ++index) strings[index] = Server::makeTaskString(strings_[next_++]);
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return Server::answerUnused("IEnumString::Skip"); }
  HRESULT STDMETHODCALLTYPE Reset() override { return Server::answerUnused("IEnumString::Reset"); }
  HRESULT STDMETHODCALLTYPE Clone(IEnumString**) override { return Server::answerUnused("IEnumString::Clone"); }

 private:
  std::vector<Text> strings_;
  std::size_t next_ = 0;
};

}  // namespace orvane::simulation

#pragma once

#include <objidl.h>
#include <oleauto.h>

// The platform's spell checker: the interfaces whole, as published, although few calls are made.

enum CORRECTIVE_ACTION {
  CORRECTIVE_ACTION_NONE = 0,
  CORRECTIVE_ACTION_GET_SUGGESTIONS = 1,
  CORRECTIVE_ACTION_REPLACE = 2,
  CORRECTIVE_ACTION_DELETE = 3,
};

struct IOptionDescription;
struct ISpellCheckerChangedEventHandler;

struct ISpellingError : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE get_StartIndex(ULONG* index) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Length(ULONG* length) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_CorrectiveAction(CORRECTIVE_ACTION* action) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Replacement(LPWSTR* text) = 0;

 protected:
  ~ISpellingError() = default;
};

struct IEnumSpellingError : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE Next(ISpellingError** error) = 0;

 protected:
  ~IEnumSpellingError() = default;
};

struct ISpellChecker : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE get_LanguageTag(LPWSTR* tag) = 0;
  virtual HRESULT STDMETHODCALLTYPE Check(LPCWSTR text, IEnumSpellingError** errors) = 0;
  virtual HRESULT STDMETHODCALLTYPE Suggest(LPCWSTR word, IEnumString** suggestions) = 0;
  virtual HRESULT STDMETHODCALLTYPE Add(LPCWSTR word) = 0;
  virtual HRESULT STDMETHODCALLTYPE Ignore(LPCWSTR word) = 0;
  virtual HRESULT STDMETHODCALLTYPE AutoCorrect(LPCWSTR from, LPCWSTR to) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetOptionValue(LPCWSTR option, BYTE* value) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_OptionIds(IEnumString** options) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Id(LPWSTR* id) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_LocalizedName(LPWSTR* name) = 0;
  virtual HRESULT STDMETHODCALLTYPE add_SpellCheckerChanged(ISpellCheckerChangedEventHandler* handler,
                                                            DWORD* cookie) = 0;
  virtual HRESULT STDMETHODCALLTYPE remove_SpellCheckerChanged(DWORD cookie) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetOptionDescription(LPCWSTR option, IOptionDescription** description) = 0;
  virtual HRESULT STDMETHODCALLTYPE ComprehensiveCheck(LPCWSTR text, IEnumSpellingError** errors) = 0;

 protected:
  ~ISpellChecker() = default;
};

struct ISpellCheckerFactory : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE get_SupportedLanguages(IEnumString** tags) = 0;
  virtual HRESULT STDMETHODCALLTYPE IsSupported(LPCWSTR tag, BOOL* isSupported) = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateSpellChecker(LPCWSTR tag, ISpellChecker** checker) = 0;

 protected:
  ~ISpellCheckerFactory() = default;
};

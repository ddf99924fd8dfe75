#include <windows.h>
// windows.h first: the next builds on it.
#include <objbase.h>

#include <gtest/gtest.h>

#include <string>

#include "composer/com_owners.h"
#include "composer/uia_interfaces.h"
#include "support/simulated_desktop.h"

namespace orvane::simulation {
namespace {

constexpr auto notAvailable = static_cast<HRESULT>(0x80040201);

constexpr const char* desktopText = R"({"windows":[
  {"id":"b","process":"chrome.exe","bounds":[0,0,1000,800],"tabs":[
    {"title":"One","address":"one.example","selected":true,"page":[
      {"id":"box","type":"edit","name":"Prompt","value":"draft","helpText":"help","legacyValue":"old",
       "bounds":[10,200,300,240]},
      {"id":"nothing","type":"edit","name":null,"value":null},
      {"id":"group","type":"pane","name":"Group","children":[
        {"id":"send","type":"button","name":"Send","unreadable":["name","bounds"]}]},
      {"id":"plain","type":"text","name":"Plain"}],
     "rules":[{"on":{"read":"plain"},"do":[{"set":{"element":"plain","name":"Read"}}]}]},
    {"title":"Two"}]},
  {"id":"deaf","process":"chrome.exe","uia":false}],"foreground":"b"})";

class UiaTest : public ::testing::Test {
 protected:
  UiaTest() {
    EXPECT_EQ(
        ::CoCreateInstance(CLSID_CUIAutomation, nullptr, CLSCTX_INPROC_SERVER, IID_IUIAutomation, automation.putVoid()),
        S_OK);
  }

  ComReference<IUIAutomationElement> root() {
    ComReference<IUIAutomationElement> element;
    EXPECT_EQ(automation->ElementFromHandle(desktop.window("b"), element.put()), S_OK);
    return element;
  }

  ComReference<IUIAutomationCondition> ofType(int controlType) {
    ComReference<IUIAutomationCondition> condition;
    const UniqueVariant value(controlType);
    EXPECT_EQ(automation->CreatePropertyCondition(UIA_ControlTypePropertyId, value.get(), condition.put()), S_OK);
    return condition;
  }

  ComReference<IUIAutomationElementArray> search(IUIAutomationCondition* condition) {
    ComReference<IUIAutomationElementArray> found;
    EXPECT_EQ(root()->FindAll(TreeScope_Descendants, condition, found.put()), S_OK);
    return found;
  }

  static int lengthOf(const ComReference<IUIAutomationElementArray>& found) {
    int length = -1;
    EXPECT_EQ(found->get_Length(&length), S_OK);
    return length;
  }

  // The nth control of a type.
  ComReference<IUIAutomationElement> control(int controlType, int index = 0) {
    ComReference<IUIAutomationElement> element;
    EXPECT_EQ(search(ofType(controlType).get())->GetElement(index, element.put()), S_OK);
    return element;
  }

  // The page's first edit stands behind the address bar.
  ComReference<IUIAutomationElement> box() { return control(UIA_EditControlTypeId, 1); }
  ComReference<IUIAutomationElement> send() { return control(UIA_ButtonControlTypeId); }

  static std::wstring nameOf(IUIAutomationElement* element) {
    UniqueBstr name;
    EXPECT_EQ(element->get_CurrentName(name.put()), S_OK);
    return bstrText(name.get());
  }

  SimulatedDesktop desktop{desktopText};
  ComReference<IUIAutomation> automation;
};

TEST_F(UiaTest, ElementFromHandle_Fails_ForAWindowWithoutAutomationOrWithoutLife) {
  for (const HWND window : {desktop.window("deaf"), static_cast<HWND>(nullptr), reinterpret_cast<HWND>(0x7)}) {
    auto* element = reinterpret_cast<IUIAutomationElement*>(1);
    EXPECT_EQ(automation->ElementFromHandle(window, &element), notAvailable);
    EXPECT_EQ(element, nullptr);
  }
}

TEST_F(UiaTest, FindAll_GivesTheMatchesInTreeOrder) {
  EXPECT_EQ(lengthOf(search(ofType(UIA_TabItemControlTypeId).get())), 2);
  EXPECT_EQ(nameOf(control(UIA_TabItemControlTypeId, 1).get()), L"Two");
  ComReference<IUIAutomationCondition> all;
  ASSERT_EQ(automation->CreateTrueCondition(all.put()), S_OK);
  EXPECT_EQ(lengthOf(search(all.get())), 10);
  ComReference<IUIAutomationCondition> either;
  ASSERT_EQ(automation->CreateOrCondition(ofType(UIA_ButtonControlTypeId).get(), ofType(UIA_EditControlTypeId).get(),
                                          either.put()),
            S_OK);
  EXPECT_EQ(lengthOf(search(either.get())), 4);
}

TEST_F(UiaTest, FindAll_SearchesBelowAnyElement) {
  ComReference<IUIAutomationElement> group = control(control_type::pane);
  ComReference<IUIAutomationElementArray> found;
  ASSERT_EQ(group->FindAll(TreeScope_Descendants, ofType(UIA_ButtonControlTypeId).get(), found.put()), S_OK);
  EXPECT_EQ(lengthOf(found), 1);
}

TEST_F(UiaTest, Array_IsASnapshot_WhoseGoneElementsFailToRead) {
  const auto found = search(ofType(UIA_ButtonControlTypeId).get());
  desktop.perform("b", R"([{"remove":"group"}])");
  EXPECT_EQ(lengthOf(found), 1);
  ComReference<IUIAutomationElement> gone;
  ASSERT_EQ(found->GetElement(0, gone.put()), S_OK);
  BOOL enabled = TRUE;
  EXPECT_EQ(gone->get_CurrentIsEnabled(&enabled), notAvailable);
  EXPECT_NE(enabled, TRUE);
  EXPECT_EQ(gone->SetFocus(), notAvailable);
  void* pattern = nullptr;
  EXPECT_EQ(gone->GetCurrentPatternAs(UIA_InvokePatternId, IID_IUIAutomationInvokePattern, &pattern), notAvailable);
  ComReference<IUIAutomationElement> outside;
  EXPECT_EQ(found->GetElement(1, outside.put()), E_INVALIDARG);
}

TEST_F(UiaTest, UnreadableFact_Fails_AndLeavesJunk) {
  UniqueBstr name;
  EXPECT_EQ(send()->get_CurrentName(name.put()), E_FAIL);
  EXPECT_EQ(name.get(), nullptr);
  RECT bounds{1, 2, 3, 4};
  EXPECT_EQ(send()->get_CurrentBoundingRectangle(&bounds), E_FAIL);
  EXPECT_NE(bounds.left, 1);
}

TEST_F(UiaTest, NullNameAndNullValue_AreReadWithSuccess) {
  const auto element = control(UIA_EditControlTypeId, 2);
  UniqueBstr name;
  EXPECT_EQ(element->get_CurrentName(name.put()), S_OK);
  EXPECT_EQ(name.get(), nullptr);
  ComReference<IUIAutomationValuePattern> pattern;
  ASSERT_EQ(element->GetCurrentPatternAs(UIA_ValuePatternId, IID_IUIAutomationValuePattern, pattern.putVoid()), S_OK);
  UniqueBstr value;
  EXPECT_EQ(pattern->get_CurrentValue(value.put()), S_OK);
  EXPECT_EQ(value.get(), nullptr);
}

TEST_F(UiaTest, AbsentPattern_IsASuccessWithNull) {
  for (const auto& [id, iid] : {std::pair{UIA_InvokePatternId, IID_IUIAutomationInvokePattern},
                                std::pair{UIA_SelectionItemPatternId, IID_IUIAutomationSelectionItemPattern},
                                std::pair{UIA_LegacyIAccessiblePatternId, IID_IUIAutomationLegacyIAccessiblePattern}}) {
    void* pattern = this;
    EXPECT_EQ(box()->GetCurrentPatternAs(id, iid, &pattern), S_OK);
    EXPECT_EQ(pattern, nullptr);
  }
}

TEST_F(UiaTest, SelectionItem_SelectsItsTab) {
  ComReference<IUIAutomationSelectionItemPattern> pattern;
  ASSERT_EQ(
      control(UIA_TabItemControlTypeId, 1)
          ->GetCurrentPatternAs(UIA_SelectionItemPatternId, IID_IUIAutomationSelectionItemPattern, pattern.putVoid()),
      S_OK);
  BOOL selected = TRUE;
  EXPECT_EQ(pattern->get_CurrentIsSelected(&selected), S_OK);
  EXPECT_EQ(selected, FALSE);
  EXPECT_EQ(pattern->Select(), S_OK);
  EXPECT_EQ(pattern->get_CurrentIsSelected(&selected), S_OK);
  EXPECT_EQ(selected, TRUE);
  EXPECT_EQ(desktop.selectedTab("b"), "Two");
}

TEST_F(UiaTest, PropertyValues_AreStrings_AndTheValueIsEmptyWithoutItsPattern) {
  const std::pair<PROPERTYID, std::wstring> expected[] = {{UIA_HelpTextPropertyId, L"help"},
                                                          {UIA_ValueValuePropertyId, L"draft"},
                                                          {UIA_LegacyIAccessibleValuePropertyId, L"old"}};
  for (const auto& [property, text] : expected) {
    UniqueVariant value;
    EXPECT_EQ(box()->GetCurrentPropertyValue(property, value.put()), S_OK);
    ASSERT_EQ(value.get().vt, VT_BSTR);
    EXPECT_EQ(bstrText(value.get().bstrVal), text);
    EXPECT_EQ(desktop.held("variants"), 1);
  }
  EXPECT_EQ(desktop.held("variants"), 0);
  UniqueVariant none;
  EXPECT_EQ(send()->GetCurrentPropertyValue(UIA_ValueValuePropertyId, none.put()), S_OK);
  EXPECT_EQ(none.get().vt, VT_EMPTY);
}

TEST_F(UiaTest, Comparison_GoesByTheControl) {
  BOOL same = FALSE;
  EXPECT_EQ(automation->CompareElements(box().get(), box().get(), &same), S_OK);
  EXPECT_EQ(same, TRUE);
  EXPECT_EQ(automation->CompareElements(box().get(), send().get(), &same), S_OK);
  EXPECT_EQ(same, FALSE);
  EXPECT_EQ(automation->CompareElements(box().get(), nullptr, &same), E_INVALIDARG);
}

TEST_F(UiaTest, FocusedElement_IsNull_UntilSomethingHasTheFocus) {
  ComReference<IUIAutomationElement> focused;
  EXPECT_EQ(automation->GetFocusedElement(focused.put()), S_OK);
  EXPECT_FALSE(focused);
  EXPECT_EQ(box()->SetFocus(), S_OK);
  EXPECT_EQ(automation->GetFocusedElement(focused.put()), S_OK);
  EXPECT_EQ(nameOf(focused.get()), L"Prompt");
  EXPECT_EQ(control(control_type::text)->SetFocus(), static_cast<HRESULT>(0x80131509));
}

TEST_F(UiaTest, Fault_GivesItsResult_ToTheNamedElementAlone) {
  desktop.setFaults(R"([{"call":"IUIAutomationElement::get_CurrentIsEnabled","element":"box","result":"0x80070005"},
                        {"call":"IUIAutomationElement::FindAll","window":"b","nth":3,"result":null}])");
  BOOL enabled = TRUE;
  EXPECT_EQ(send()->get_CurrentIsEnabled(&enabled), S_OK);
  ComReference<IUIAutomationElementArray> none;
  EXPECT_EQ(root()->FindAll(TreeScope_Descendants, ofType(UIA_EditControlTypeId).get(), none.put()), S_OK);
  EXPECT_TRUE(none);
  EXPECT_EQ(root()->FindAll(TreeScope_Descendants, ofType(UIA_EditControlTypeId).get(), none.put()), S_OK);
  EXPECT_FALSE(none);
  enabled = TRUE;
  EXPECT_EQ(box()->get_CurrentIsEnabled(&enabled), static_cast<HRESULT>(0x80070005));
  EXPECT_NE(enabled, TRUE);
  EXPECT_EQ(box()->get_CurrentIsEnabled(&enabled), S_OK);
}

TEST_F(UiaTest, FaultOfTheLength_KnowsTheWindowThatWasSearched) {
  desktop.setFaults(R"([{"call":"IUIAutomationElementArray::get_Length","window":"deaf","result":"0x80004005"},
                        {"call":"IUIAutomationElementArray::get_Length","window":"b","nth":2,"result":"0x80070005"}])");
  ComReference<IUIAutomationElementArray> found;
  EXPECT_EQ(root()->FindAll(TreeScope_Descendants, ofType(UIA_EditControlTypeId).get(), found.put()), S_OK);
  int length = 0;
  EXPECT_EQ(found->get_Length(&length), S_OK);
  EXPECT_EQ(found->get_Length(&length), static_cast<HRESULT>(0x80070005));
}

TEST_F(UiaTest, ReadRule_ActsAfterTheValueWasTaken) {
  const auto element = control(control_type::text);
  EXPECT_EQ(nameOf(element.get()), L"Plain");
  EXPECT_EQ(nameOf(element.get()), L"Read");
}

TEST_F(UiaTest, WindowOfTheHost_ShowsNothingInside) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = ::DefWindowProcW;
  windowClass.lpszClassName = L"UiaTest";
  ASSERT_NE(::RegisterClassW(&windowClass), 0);
  const HWND window = ::CreateWindowExW(0, L"UiaTest", L"Own", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                                        ::GetModuleHandleW(nullptr), nullptr);
  ComReference<IUIAutomationElement> element;
  ASSERT_EQ(automation->ElementFromHandle(window, element.put()), S_OK);
  EXPECT_EQ(nameOf(element.get()), L"Own");
  ComReference<IUIAutomationCondition> all;
  ASSERT_EQ(automation->CreateTrueCondition(all.put()), S_OK);
  ComReference<IUIAutomationElementArray> found;
  ASSERT_EQ(element->FindAll(TreeScope_Descendants, all.get(), found.put()), S_OK);
  EXPECT_EQ(lengthOf(found), 0);
  ::DestroyWindow(window);
  EXPECT_EQ(element->FindAll(TreeScope_Descendants, all.get(), found.put()), notAvailable);
}

TEST_F(UiaTest, Calls_Fail_OnAThreadWithoutAnApartment) {
  struct Attempt {
    IUIAutomation* automation;
    HRESULT creation = S_OK;
    HRESULT search = S_OK;
  } attempt{automation.get()};
  const auto body = [](void* place) -> DWORD {
    auto& own = *static_cast<Attempt*>(place);
    void* object = place;
    own.creation = ::CoCreateInstance(CLSID_CUIAutomation, nullptr, CLSCTX_INPROC_SERVER, IID_IUIAutomation, &object);
    IUIAutomationElement* element = nullptr;
    own.search = own.automation->GetFocusedElement(&element);
    return 0;
  };
  const HANDLE thread = ::CreateThread(nullptr, 0, body, &attempt, 0, nullptr);
  ::CloseHandle(thread);
  ::Sleep(1);
  EXPECT_EQ(attempt.creation, CO_E_NOTINITIALIZED);
  EXPECT_EQ(attempt.search, CO_E_NOTINITIALIZED);
}

using UiaDeathTest = UiaTest;

TEST_F(UiaDeathTest, Run_Stops_WhenAReferenceIsGivenBackTwice) {
  IUIAutomationCondition* condition = nullptr;
  ASSERT_EQ(automation->CreateTrueCondition(&condition), S_OK);
  EXPECT_EQ(condition->Release(), 0u);
  EXPECT_EXIT(condition->Release(), ::testing::ExitedWithCode(3), "simulation: Release: ");
}

TEST_F(UiaDeathTest, Run_Stops_WhenTheApartmentGoesBeforeItsReferences) {
  EXPECT_EXIT(::CoUninitialize(), ::testing::ExitedWithCode(3),
              "simulation: CoUninitialize: references are still held");
}

TEST_F(UiaDeathTest, Run_Stops_AtWhatIsNotModelled) {
  void* object = nullptr;
  EXPECT_EXIT(automation->QueryInterface(IID_IUIAutomationElement, &object), ::testing::ExitedWithCode(3),
              "simulation: QueryInterface: ");
  EXPECT_EXIT(box()->GetCurrentPatternAs(10001, IID_IUIAutomationValuePattern, &object), ::testing::ExitedWithCode(3),
              "GetCurrentPatternAs");
  EXPECT_EXIT(::SysFreeString(reinterpret_cast<BSTR>(0x10)), ::testing::ExitedWithCode(3), "SysFreeString");
}

}  // namespace
}  // namespace orvane::simulation

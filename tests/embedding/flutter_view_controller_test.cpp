#include "embedding/flutter_view_controller.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "embedding/captured_errors.h"
#include "embedding/embedding_fixture.h"

namespace orvane::embedding_tests {
namespace {

using Calls = std::vector<std::string>;

static_assert(std::has_virtual_destructor_v<FlutterViewController>);
static_assert(std::has_virtual_destructor_v<FlutterView>);
static_assert(std::has_virtual_destructor_v<PluginRegistry>);

class ViewController : public EmbeddingTest {};
class Engine : public EmbeddingTest {};

TEST(DartProject, PutsItsFilesUnderItsPath) {
  const DartProject project(L"data");

  EXPECT_EQ(project.assetsPath(), L"data\\flutter_assets");
  EXPECT_EQ(project.icuDataPath(), L"data\\icudtl.dat");
  EXPECT_EQ(project.aotLibraryPath(), L"data\\app.so");
  EXPECT_EQ(project.entryPoint(), "");
  EXPECT_TRUE(project.entryPointArguments().empty());
}

TEST(DartProject, KeepsItsArguments_InACopy) {
  DartProject project(L"data");
  project.setEntryPointArguments({"--first=1", "", "h\xC3\xA9"});

  const DartProject copy = project;
  project.setEntryPointArguments({});

  EXPECT_EQ(copy.entryPointArguments(), (std::vector<std::string>{"--first=1", "", "h\xC3\xA9"}));
}

TEST_F(ViewController, MakesEngineControllerAndView_InThisOrder) {
  CapturedErrors errors;

  const FlutterViewController controller(1264, 681, DartProject(L"data"));

  EXPECT_EQ(fakeLibrary().calls,
            (Calls{"EngineCreate", "EngineGetMessenger", "ViewControllerCreate", "ViewControllerGetView"}));
  EXPECT_EQ(fakeLibrary().width, 1264);
  EXPECT_EQ(fakeLibrary().height, 681);
  EXPECT_EQ(controller.handle(), fakeLibrary().controller());
  EXPECT_EQ(controller.engine()->handle(), fakeLibrary().engine());
  EXPECT_NE(controller.engine()->messenger(), nullptr);
  EXPECT_EQ(controller.view()->GetNativeWindow(), fakeLibrary().viewWindow());
  EXPECT_EQ(errors.lines(), Lines{});
}

TEST_F(ViewController, EndsTheEngineThroughTheController_AndOnlyOnce) {
  {
    const FlutterViewController controller(1, 1, DartProject(L"data"));
    fakeLibrary().calls.clear();
  }

  EXPECT_EQ(fakeLibrary().calls, Calls{"ViewControllerDestroy"});
}

TEST_F(ViewController, LogsAndHasNoView_WhenTheLibraryMakesNoController) {
  fakeLibrary().makesController = false;
  CapturedErrors errors;

  {
    const FlutterViewController controller(1, 1, DartProject(L"data"));

    EXPECT_EQ(controller.handle(), nullptr);
    EXPECT_EQ(controller.view(), nullptr);
    ASSERT_NE(controller.engine(), nullptr);
    EXPECT_EQ(controller.engine()->handle(), fakeLibrary().engine());
  }

  EXPECT_EQ(fakeLibrary().calls, (Calls{"EngineCreate", "EngineGetMessenger", "ViewControllerCreate"}));
  EXPECT_EQ(errors.lines(), Lines{"Failed to create view controller."});
}

TEST_F(ViewController, LogsAndHasNoView_WhenTheLibraryMakesNoEngine) {
  fakeLibrary().makesEngine = false;
  CapturedErrors errors;

  {
    const FlutterViewController controller(1, 1, DartProject(L"data"));

    EXPECT_EQ(controller.handle(), nullptr);
    EXPECT_EQ(controller.view(), nullptr);
  }

  EXPECT_EQ(fakeLibrary().calls, Calls{"EngineCreate"});
  EXPECT_EQ(errors.lines(), Lines{"Failed to create view controller."});
}

TEST_F(ViewController, HasNoView_WhenTheLibraryHasNone) {
  fakeLibrary().makesView = false;

  const FlutterViewController controller(1, 1, DartProject(L"data"));

  EXPECT_NE(controller.handle(), nullptr);
  EXPECT_EQ(controller.view(), nullptr);
}

TEST_F(Engine, HandsTheProjectToTheLibrary) {
  DartProject project(L"data");
  project.setEntryPointArguments({"one", "", "h\xC3\xA9"});

  const FlutterEngine engine(project);

  ASSERT_TRUE(fakeLibrary().properties.has_value());
  const FakeFlutterLibrary::Properties& properties = *fakeLibrary().properties;
  EXPECT_EQ(properties.assetsPath, L"data\\flutter_assets");
  EXPECT_EQ(properties.icuDataPath, L"data\\icudtl.dat");
  EXPECT_EQ(properties.aotLibraryPath, L"data\\app.so");
  EXPECT_EQ(properties.entryPoint, "");
  EXPECT_EQ(properties.arguments, (std::vector<std::string>{"one", "", "h\xC3\xA9"}));
  EXPECT_FALSE(properties.argumentPointerIsNull);
  EXPECT_EQ(properties.options, (std::vector<std::int32_t>{0, 0, 0}));
}

TEST_F(Engine, PassesANullPointer_WhenThereAreNoArguments) {
  const FlutterEngine engine(DartProject(L"data"));

  EXPECT_TRUE(fakeLibrary().properties->argumentPointerIsNull);
  EXPECT_TRUE(fakeLibrary().properties->arguments.empty());
}

TEST_F(Engine, EndsItsEngine_WhileItOwnsIt) {
  { const FlutterEngine engine(DartProject(L"data")); }

  EXPECT_EQ(fakeLibrary().calls, (Calls{"EngineCreate", "EngineGetMessenger", "EngineDestroy"}));
}

TEST_F(Engine, LeavesItsEngine_AfterHandingItOn) {
  FlutterDesktopEngineRef handedOn = nullptr;
  {
    FlutterEngine engine(DartProject(L"data"));
    handedOn = engine.relinquish();
    EXPECT_EQ(engine.GetRegistrarForPlugin("AfterHandingOn"), fakeLibrary().registrar());
  }

  EXPECT_EQ(handedOn, fakeLibrary().engine());
  EXPECT_EQ(fakeLibrary().calls, (Calls{"EngineCreate", "EngineGetMessenger", "EngineGetPluginRegistrar"}));
}

TEST_F(Engine, GivesTheRegistrar_OfEachPlugin) {
  FlutterEngine engine(DartProject(L"data"));

  const auto first = engine.GetRegistrarForPlugin("DesktopDropPlugin");
  const auto second = engine.GetRegistrarForPlugin("UrlLauncherWindows");

  EXPECT_EQ(first, fakeLibrary().registrar());
  EXPECT_EQ(second, fakeLibrary().registrar());
  EXPECT_EQ(fakeLibrary().plugins, (Calls{"DesktopDropPlugin", "UrlLauncherWindows"}));
}

TEST_F(Engine, GivesNoRegistrarAndLogs_WithoutAnEngine) {
  fakeLibrary().makesEngine = false;
  FlutterEngine engine(DartProject(L"data"));
  CapturedErrors errors;

  const auto registrar = engine.GetRegistrarForPlugin("DesktopDropPlugin");

  EXPECT_EQ(registrar, nullptr);
  EXPECT_TRUE(fakeLibrary().plugins.empty());
  EXPECT_EQ(errors.lines(), Lines{"Cannot get plugin registrar on an engine that isn't running; call Run first."});
}

TEST_F(Engine, AsksTheLibraryForNothingMore_WithoutAnEngine) {
  fakeLibrary().makesEngine = false;
  {
    FlutterEngine engine(DartProject(L"data"));

    engine.ReloadSystemFonts();
    engine.SetNextFrameCallback([] {});

    EXPECT_EQ(engine.messenger(), nullptr);
  }

  EXPECT_EQ(fakeLibrary().calls, Calls{"EngineCreate"});
}

TEST_F(Engine, ReloadsTheFonts) {
  FlutterEngine engine(DartProject(L"data"));

  engine.ReloadSystemFonts();

  EXPECT_EQ(fakeLibrary().calls.back(), "EngineReloadSystemFonts");
}

TEST_F(Engine, CallsTheNextFrameFunction_Once) {
  FlutterEngine engine(DartProject(L"data"));
  int calls = 0;

  engine.SetNextFrameCallback([&] { ++calls; });
  const int callsBefore = calls;
  fakeLibrary().drawFrame();
  fakeLibrary().drawFrame();

  EXPECT_EQ(callsBefore, 0);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(fakeLibrary().frameUserData, &engine);
}

TEST_F(Engine, ReplacesTheNextFrameFunction_BeforeTheFrame) {
  FlutterEngine engine(DartProject(L"data"));
  Calls called;

  engine.SetNextFrameCallback([&] { called.emplace_back("former"); });
  engine.SetNextFrameCallback([&] { called.emplace_back("present"); });
  fakeLibrary().drawFrame();

  EXPECT_EQ(called, Calls{"present"});
}

TEST_F(Engine, KeepsAFunctionForTheFrameAfter_WhenAskedForInAFrame) {
  FlutterEngine engine(DartProject(L"data"));
  Calls called;
  engine.SetNextFrameCallback([&] {
    called.emplace_back("first");
    engine.SetNextFrameCallback([&] { called.emplace_back("second"); });
  });

  fakeLibrary().drawFrame();
  const Calls calledInTheFirst = called;
  fakeLibrary().drawFrame();

  EXPECT_EQ(calledInTheFirst, Calls{"first"});
  EXPECT_EQ(called, (Calls{"first", "second"}));
}

TEST_F(Engine, LetsNoExceptionPassTheLibrary_WhenAFrameFunctionThrows) {
  FlutterEngine engine(DartProject(L"data"));
  engine.SetNextFrameCallback([] { throw std::runtime_error("broken"); });
  CapturedErrors errors;

  fakeLibrary().drawFrame();

  EXPECT_EQ(errors.lines(), Lines{"Error: An exception ended the handling of a frame: broken"});
}

}  // namespace
}  // namespace orvane::embedding_tests

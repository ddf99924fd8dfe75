#include "plugins/registration.h"

void UrlLauncherWindowsRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar) {
  orvane::standins::noteRegistration(registrar);
}

#include "plugins/registration.h"

void WebviewWindowsPluginRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar) {
  orvane::standins::noteRegistration(registrar);
}

#include "plugins/registration.h"

void DesktopDropPluginRegisterWithRegistrar(FlutterDesktopPluginRegistrarRef registrar) {
  orvane::standins::noteRegistration(registrar);
}

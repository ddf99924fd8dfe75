#pragma once

#include <string>

#include "embedding/flutter_library.h"

namespace orvane {

// Gives each plugin the place where it registers.
class PluginRegistry {
 public:
  PluginRegistry() = default;
  virtual ~PluginRegistry() = default;

  PluginRegistry(const PluginRegistry&) = delete;
  PluginRegistry& operator=(const PluginRegistry&) = delete;

  // Null when there is no place to register.
  virtual FlutterDesktopPluginRegistrarRef GetRegistrarForPlugin(const std::string& plugin) = 0;
};

}  // namespace orvane

// The desktop that a command works on, with or without somebody in front of it.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/scripted/ScriptedDesktop.h"
#include "platform/scripted/ScriptedHands.h"
#include "platform/ui/Clerk.h"

namespace payslate::host {

class Screen {
 public:
  virtual ~Screen() = default;
  virtual ui::Desktop& desktop() = 0;
  virtual ui::Hands& hands() = 0;
  virtual void setClerk(ui::Clerk* clerk) = 0;
  /// Can a person see it? If not, only a clerk can attend to what it shows.
  [[nodiscard]] virtual bool isSeen() const = 0;
  /// From now on every window that is shown leaves a picture in this folder, which exists.
  virtual void saveScreens(const std::string& folder) = 0;
};

/// Makes the screen with real windows; called when a command needs it.
using ScreenMaker = std::function<std::unique_ptr<Screen>()>;

/// No windows at all.
class ScriptedScreen : public Screen {
 public:
  ui::Desktop& desktop() override { return desktop_; }
  ui::Hands& hands() override { return hands_; }
  void setClerk(ui::Clerk* clerk) override { desktop_.setClerk(clerk); }
  [[nodiscard]] bool isSeen() const override { return false; }
  void saveScreens(const std::string&) override {}

 private:
  scripted::ScriptedDesktop desktop_;
  scripted::ScriptedHands hands_;
};

}  // namespace payslate::host

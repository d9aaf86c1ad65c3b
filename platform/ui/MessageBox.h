// What message boxes say and what users answer.
#pragma once

#include <string>

namespace payslate::ui {

/// The styles in use: buttons and icon in one number.
enum class MessageStyle {
  Critical = 16,
  AskCritical = 20,     ///< Yes and No, critical icon
  AskQuestion = 36,     ///< Yes and No, question icon
  Exclamation = 48,     ///< OK, exclamation icon
  Information = 64,     ///< OK, information icon
  AskInformation = 68,  ///< Yes and No, information icon
  AskQuestionNo = 292,  ///< Yes and No, question icon, No is the default
};

enum class Answer { Ok = 1, Yes = 6, No = 7 };

struct Message {
  std::string text;
  MessageStyle style = MessageStyle::Information;
  std::string title;

  /// Does it have the buttons Yes and No, instead of OK alone?
  [[nodiscard]] bool asksYesNo() const {
    constexpr int buttonsMask = 7;
    constexpr int yesNo = 4;
    return (static_cast<int>(style) & buttonsMask) == yesNo;
  }
};

}  // namespace payslate::ui

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
  AskQuestionNo = 292,  ///< Yes and No, question icon; Enter means No
};

/// Escape is for clerks, who may press it instead of a button; no message box returns it.
enum class Answer { Ok = 1, Escape = 2, Yes = 6, No = 7 };

struct Message {
  std::string text;
  MessageStyle style = MessageStyle::Information;
  std::string title;

  /// Does it have the buttons Yes and No, instead of OK alone? Then only they answer it; Escape and the close
  /// box of another mean OK.
  [[nodiscard]] bool asksYesNo() const {
    constexpr int buttonsMask = 7;
    constexpr int yesNo = 4;
    return (static_cast<int>(style) & buttonsMask) == yesNo;
  }
  /// The button that Enter presses.
  [[nodiscard]] Answer defaultAnswer() const {
    constexpr int secondButton = 256;
    if (!asksYesNo()) return Answer::Ok;
    return (static_cast<int>(style) & secondButton) == 0 ? Answer::Yes : Answer::No;
  }
};

}  // namespace payslate::ui

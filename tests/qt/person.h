// Somebody who answers dialogs in the order in which they come to the front.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vesmora {

class Person {
 public:
  using Answer = std::function<void(QDialog&)>;
  enum class Manner {
    kStrict,   // a dialog without an answer fails the test
    kPatient,  // presses OK in boxes nobody has told about
  };

  explicit Person(Manner manner) : manner_(manner) {
    QObject::connect(&clock_, &QTimer::timeout, [this] { Look(); });
    clock_.start(5);
  }
  ~Person() { EXPECT_TRUE(answers.empty()) << "a dialog did not come"; }
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;

  std::deque<Answer> answers;
  std::vector<std::string> told;  // titles and texts of the boxes that Press has answered

  /// Presses a button of a box.
  Answer Press(QMessageBox::StandardButton button) {
    return [this, button](QDialog& dialog) {
      const auto& box = dynamic_cast<QMessageBox&>(dialog);
      told.push_back((box.windowTitle() + ": " + box.text()).toStdString());
      box.button(button)->click();
    };
  }
  static void Cancel(QDialog& dialog) { dialog.reject(); }

 private:
  void Look() {
    auto* front = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (isAnswering_ || front == nullptr || !front->isVisible() || front == inHand_) return;
    isAnswering_ = true;
    // A timer does not run again inside what it has called, and answers open further boxes.
    QTimer::singleShot(0, front, [this, front] { AnswerTo(*front); });
  }
  void AnswerTo(QDialog& front) {
    isAnswering_ = false;
    const auto* before = std::exchange(inHand_, &front);  // an answer may wait for what it sees
    Give(front);
    inHand_ = before;
  }
  void Give(QDialog& front) {
    if (!answers.empty()) {
      const Answer answer = answers.front();
      answers.pop_front();
      answer(front);
    } else if (manner_ == Manner::kPatient && front.inherits("QMessageBox")) {
      front.accept();
    } else {
      ADD_FAILURE() << "unexpected: " << front.windowTitle().toStdString();
      front.reject();
    }
  }

  Manner manner_;
  QTimer clock_;
  bool isAnswering_ = false;
  const QDialog* inHand_ = nullptr;
};

}  // namespace vesmora

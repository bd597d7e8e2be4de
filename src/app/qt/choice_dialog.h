// A dialog that lets people choose one of several maps by name and picture.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "view/qt/map_picture.h"

namespace vesmora {

/// Above the list and its picture there is room for what all have in common (Top), below for what
/// is told of the chosen one (Details).
class ChoiceDialog : public QDialog {
  Q_OBJECT

 protected:
  struct Names {
    QString title;
    QString list;            // as assistive programs read it
    QString accept;          // caption of the button
    const char* acceptName;  // of the button's object
    const char* cancelName;
  };

  ChoiceDialog(const Names& names, QWidget* parent);

  void AddRow(const QString& name);
  /// Once all rows are there; -1: nothing is chosen yet.
  void Begin(int row);
  /// True, with a row chosen, when the dialog was not cancelled.
  bool IsAccepted();
  /// -1 for none.
  int ChosenRow() const { return list_->currentRow(); }
  /// Shows the row that is chosen now, which may be none.
  virtual void ShowChoice() = 0;

  QVBoxLayout& Top() { return *top_; }
  QVBoxLayout& Details() { return *details_; }
  MapPicture& Picture() { return *picture_; }
  void Enable(bool canAccept) { accept_->setEnabled(canAccept); }

  /// A value that is cut where it is too long: it must not push the dialog over the edge of the
  /// screen. Values that stand far from their captions say what they are.
  static QLabel* MakeValue(const char* name, const QString& description);
  static QLabel* MakeNumbers(const char* name, const QString& description);

 private:
  void FollowSelection();

  QVBoxLayout* top_ = new QVBoxLayout;
  QVBoxLayout* details_ = new QVBoxLayout;
  QListWidget* list_ = new QListWidget;
  MapPicture* picture_ = new MapPicture;
  QPushButton* accept_;
};

}  // namespace vesmora

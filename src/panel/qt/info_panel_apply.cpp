// Applying contents to the widgets, as little of them as differs.
#include <QApplication>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleFactory>

#include "panel/qt/info_panel.h"

namespace vesmora {
namespace {

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

void ShowText(QLabel* label, const std::string& text) { label->setText(ToQt(text)); }

/// The face in the given colour and the caption in whichever of black and white can be
/// read on it. A palette, not a style sheet: those slow the program's start down.
QPalette FacePalette(Rgb color) {
  const int brightness = (color.red * 299 + color.green * 587 + color.blue * 114) / 1000;
  QPalette palette;
  palette.setColor(QPalette::Button, QColor(color.red, color.green, color.blue));
  palette.setColor(QPalette::ButtonText, brightness < 128 ? Qt::white : Qt::black);
  return palette;
}

/// Systems' own styles paint faces as they like; this one goes by the palette.
void UseStyleWithFaces(QPushButton* button) {
  static QStyle* style = nullptr;
  if (QApplication::style()->name() == "fusion") return;
  if (style == nullptr) {
    style = QStyleFactory::create("fusion");
    style->setParent(qApp);
  }
  if (button->style() != style) button->setStyle(style);
}

void ShowButton(QPushButton* button, const ButtonContents& contents) {
  button->setEnabled(contents.enabled);
  if (contents.color) UseStyleWithFaces(button);
  button->setPalette(contents.color ? FacePalette(*contents.color) : QPalette());
}

Qt::CheckState ToQt(Tick tick) {
  switch (tick) {
    case Tick::kOn:
      return Qt::Checked;
    case Tick::kMixed:
      return Qt::PartiallyChecked;
    case Tick::kOff:
      break;
  }
  return Qt::Unchecked;
}

void ShowBox(QCheckBox* box, const CheckContents& contents) {
  const QSignalBlocker quiet(box);
  box->setEnabled(contents.enabled);
  const Qt::CheckState state = ToQt(contents.tick);
  if (box->checkState() == state) return;  // setting it again would paint it again
  box->setTristate(state == Qt::PartiallyChecked);
  box->setCheckState(state);
}

template <std::size_t kCount>
void ShowChoices(const std::array<QRadioButton*, kCount>& options,
                 const std::array<OptionContents, kCount>& contents) {
  for (std::size_t i = 0; i < kCount; ++i) {
    const QSignalBlocker quiet(options[i]);
    options[i]->setChecked(contents[i].chosen);
    options[i]->setEnabled(contents[i].enabled);
  }
}

}  // namespace

void InfoPanel::Apply(const PanelContents& contents) {
  if (shown_ == contents) return;
  // First: a frame's style sheet puts back the palettes that its buttons had.
  if (!shown_ || shown_->highlightedTool != contents.highlightedTool) {
    ApplyHighlight(contents.highlightedTool);
  }
  ApplyTexts(contents);
  ApplyButtons(contents);
  ApplyBoxes(contents);
  ApplyCombos(contents);
  shown_ = contents;
}

void InfoPanel::ApplyTexts(const PanelContents& contents) {
  ShowText(mapInfo_, contents.Lkartta1);
  ShowText(author_, contents.lAuthor);
  ShowText(fillLevels_, contents.Lkartta2);
  selectedFrame_->setTitle(ToQt(contents.Fvalinta));
  ShowText(selected_, contents.Lvalinta);
}

void InfoPanel::ApplyButtons(const PanelContents& contents) {
  ShowButton(upper_, contents.CBtausta1);
  ShowButton(lower_, contents.CBtausta2);
  ShowButton(vertexColor_, contents.CBverticevari);
  ShowButton(connect_, contents.CByhista);
  ShowButton(disconnect_, contents.CBerota);
  ShowButton(restoreTexture_, contents.CBtexPalauta);
  ShowButton(deleteTexture_, contents.CBtexPoista);
}

void InfoPanel::ApplyBoxes(const PanelContents& contents) {
  for (std::size_t i = 0; i < show_.size(); ++i) ShowBox(show_[i], contents.CBnayta[i]);
  ShowBox(noTextureCorrection_, contents.CBtexEiKorjaus);
  ShowBox(passable_, contents.CBverticeLapi);
  for (std::size_t i = 0; i < botSettings_.size(); ++i) {
    ShowBox(botSettings_[i], contents.CBbotValinta[i]);
  }
  ShowChoices(pathFilter_, contents.OBbotNayta);
  ShowChoices(path_, contents.OBbotKumpi);
}

void InfoPanel::ApplyCombos(const PanelContents& contents) {
  spawnType_->Show(contents.CBspawn, SpawnItems(contents.CBspawn));
  sceneryType_->Show(contents.CBscenery, SceneryItems(contents.CBscenery));
  visibility_->Show(contents.CBscenery2, VisibilityItems(contents.CBscenery2));
  colliderSize_->Show(contents.CBcollider, {kColliderSizes.begin(), kColliderSizes.end()});
}

void InfoPanel::ApplyHighlight(ToolMode tool) {
  for (std::size_t i = 0; i < toolFrames_.size(); ++i) {
    QGroupBox* frame = toolFrames_[i];
    if (frame == nullptr) continue;
    const bool isActive = i == static_cast<std::size_t>(tool);
    const QString style = isActive ? "QGroupBox { color: rgb(255, 0, 0); }" : "";
    if (frame->styleSheet() != style) frame->setStyleSheet(style);
  }
}

}  // namespace vesmora

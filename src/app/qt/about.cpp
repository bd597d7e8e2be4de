#include "app/qt/about.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vesmora {
namespace {

QLabel* AddLink(QVBoxLayout& layout, const QString& address, const QString& text) {
  auto* link = new QLabel(QString("<a href=\"%1\">%2</a>").arg(address, text));
  link->setOpenExternalLinks(true);
  link->setTextInteractionFlags(Qt::TextBrowserInteraction);
  link->setAlignment(Qt::AlignCenter);
  layout.addWidget(link);
  return link;
}

}  // namespace

About::About(QWidget* parent) : QDialog(parent) {
  setWindowTitle("About Vesmora");
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(36, 24, 36, 20);
  layout->setSpacing(10);
  auto* picture = new QLabel;
  picture->setPixmap(QApplication::windowIcon().pixmap(96));
  picture->setAlignment(Qt::AlignCenter);
  layout->addWidget(picture);
  auto* title = new QLabel("Vesmora");
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * 1.8);
  large.setBold(true);
  title->setFont(large);
  title->setAlignment(Qt::AlignCenter);
  layout->addWidget(title);
  auto* version = new QLabel("Version " VESMORA_VERSION "\nMap editor for Soldat 1.0.5b");
  version->setAlignment(Qt::AlignCenter);
  layout->addWidget(version);
  AddLink(*layout, "https://vesmora.example/", "vesmora.example")->setObjectName("Lsivu");
  AddLink(*layout, "mailto:maps@vesmora.example", "maps@vesmora.example")->setObjectName("Lposti");
  layout->addSpacing(8);
  auto* ok = new QPushButton("OK");
  ok->setObjectName("cmdOK");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  layout->addWidget(ok, 0, Qt::AlignCenter);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace vesmora

#include "ui/widgets/dialog_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace orvo::ui {

DialogButtons DialogButtons::Make(QWidget* parent) {
    DialogButtons b;
    b.Ok = new QPushButton(QStringLiteral("Gerai"), parent);
    b.Ok->setObjectName(QStringLiteral("cmdOK"));
    b.Cancel = new QPushButton(QStringLiteral("Atšaukti"), parent);
    b.Cancel->setObjectName(QStringLiteral("cmdCancel"));
    b.Row = new QHBoxLayout;
    b.Row->addStretch();
    b.Row->addWidget(b.Ok);
    b.Row->addWidget(b.Cancel);
    return b;
}

} // namespace orvo::ui

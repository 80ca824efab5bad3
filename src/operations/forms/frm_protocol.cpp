#include "operations/forms/frm_protocol.h"

#include "core/null_readers.h"
#include "core/recordset.h"
#include "frame/orvo_object_uio.h"
#include "ui/shell/built_widget_form.h"

#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo {

namespace {

QLabel* value(QWidget* parent, const char* name, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QString logDate(const Value& v) {
    if (v.kind() == Value::Kind::DateTime)
        return v.toDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    return NzString(v);
}

} // namespace

void FrmProtocol::SetProtocol(const QString& createdByUserName, const QString& creationDate,
                              const QString& changedByUserName, const QString& correctionDate) {
    createdBy_ = createdByUserName;
    created_ = creationDate;
    changedBy_ = changedByUserName;
    changed_ = correctionDate;
}

void FrmProtocol::Show(bool) {
    auto window = std::make_shared<ui::BuiltWidgetForm>(QStringLiteral("frmProtocol"),
                                                        [this]() { return build(); });
    window->Show(true);
}

QWidget* FrmProtocol::build() {
    auto* root = new QWidget;
    root->setWindowTitle(QStringLiteral("Protokolas"));
    auto* stamps = new QFormLayout;
    stamps->addRow(QStringLiteral("Sukūrė:"), value(root, "lblCreatedBy", createdBy_));
    stamps->addRow(QStringLiteral("Sukūrimo data:"), value(root, "lblCreationDate", created_));
    stamps->addRow(QStringLiteral("Pakeitė:"), value(root, "lblChangedBy", changedBy_));
    stamps->addRow(QStringLiteral("Pakeitimo data:"), value(root, "lblCorrectionDate", changed_));

    auto* log = new QTreeWidget(root);
    log->setObjectName(QStringLiteral("BRLog"));
    log->setHeaderLabels({QStringLiteral("Data"), QStringLiteral("Vartotojas")});
    log->setRootIsDecorated(false);
    const OrvoObjectUIOPtr op = GetOrvoObjectUIO();
    // A new operation has no protocol yet; only a stored one is asked for its changes.
    if (op && op->OIDR().size() > 8) {
        const ValueResult r = op->Properties(
            QStringLiteral("BROperLog"), QStringLiteral("'") + op->OIDR() + QStringLiteral("'"));
        if (const RecordsetPtr rows = r.ok() ? r.Value.toRecordset() : nullptr)
            for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
                new QTreeWidgetItem(log, {logDate(rows->Field(QStringLiteral("Date"))),
                                          NzString(rows->Field(QStringLiteral("User")))});
    }
    log->resizeColumnToContents(0);

    auto* close = new QPushButton(QStringLiteral("Uždaryti"), root);
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setDefault(true);
    QObject::connect(close, &QPushButton::clicked, root, [root]() {
        if (auto* dialog = qobject_cast<QDialog*>(root->window()))
            dialog->accept();
    });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close);

    auto* layout = new QVBoxLayout(root);
    layout->addLayout(stamps);
    layout->addWidget(log, 1);
    layout->addLayout(buttons);
    return root;
}

} // namespace orvo

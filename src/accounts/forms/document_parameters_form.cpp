#include "accounts/forms/document_parameters_form.h"

#include "accounts/forms/form_support.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo::accounts_forms {

FrmDocumentParameters::~FrmDocumentParameters() = default;

QWidget* FrmDocumentParameters::BuildWidget() {
    editor_ = std::make_unique<DocumentParametersEditor>(GetOrvoObjectUIO());
    editor_->Load();

    root_ = new QWidget;
    root_->setWindowTitle(QStringLiteral("Dokumento parametrai"));
    root_->setMinimumWidth(520);
    auto* column = new QVBoxLayout(root_);
    auto* typeRow = new QHBoxLayout;
    auto* label = new QLabel(QStringLiteral("Dokumento tipas:"), root_);
    docType_ = new QComboBox(root_);
    docType_->setObjectName(QStringLiteral("cmbDocType"));
    label->setBuddy(docType_);
    for (const DocumentParametersEditor::DocumentType& t : editor_->DocumentTypes())
        docType_->addItem(t.Name, t.Code);
    docType_->setCurrentIndex(editor_->DocumentTypeIndex());
    typeRow->addWidget(label);
    typeRow->addWidget(docType_, 1);
    column->addLayout(typeRow);

    templates_ = new QTreeWidget(root_);
    templates_->setObjectName(QStringLiteral("lvwTemplates"));
    templates_->setHeaderLabels({QStringLiteral("Šablono tipas"), QStringLiteral("Šablonas")});
    templates_->setRootIsDecorated(false);
    templates_->setColumnWidth(0, 220);
    column->addWidget(templates_, 1);

    auto* buttons = new QHBoxLayout;
    auto* select = new QPushButton(QStringLiteral("&Pasirinkti"), root_);
    select->setObjectName(QStringLiteral("cmdSelect"));
    auto* remove = new QPushButton(QStringLiteral("&Ištrinti"), root_);
    remove->setObjectName(QStringLiteral("cmdDelete"));
    auto* ok = new QPushButton(QStringLiteral("&Gerai"), root_);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    buttons->addWidget(select);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    column->addLayout(buttons);

    QWidget::setTabOrder(docType_, templates_);
    QWidget::setTabOrder(templates_, select);
    QWidget::setTabOrder(select, remove);
    QWidget::setTabOrder(remove, ok);

    QObject::connect(docType_, &QComboBox::currentIndexChanged, root_, [this](int index) {
        editor_->SelectDocumentType(index);
        fillRows();
    });
    QObject::connect(select, &QPushButton::clicked, root_, [this]() {
        const int row = currentRow();
        if (editor_->Select(row)) {
            fillRows();
            templates_->setCurrentItem(templates_->topLevelItem(row));
        }
    });
    QObject::connect(remove, &QPushButton::clicked, root_, [this]() {
        const int row = currentRow();
        if (editor_->Delete(row)) {
            fillRows();
            templates_->setCurrentItem(templates_->topLevelItem(row));
        }
    });
    QObject::connect(ok, &QPushButton::clicked, root_, [this]() { OK(); });

    fillRows();
    return root_;
}

void FrmDocumentParameters::fillRows() {
    templates_->clear();
    for (const DocumentParametersEditor::Row& r : editor_->Rows()) {
        auto* item = new QTreeWidgetItem(templates_, {r.TypeText, r.TemplateText});
        item->setData(0, Qt::UserRole, QString::number(r.TypeID));
        item->setData(1, Qt::UserRole,
                      r.TemplateID > 0 ? QString::number(r.TemplateID) : QString());
    }
}

int FrmDocumentParameters::currentRow() const {
    return templates_->indexOfTopLevelItem(templates_->currentItem());
}

void FrmDocumentParameters::OK() {
    editor_->Write();
    written_ = true;
    CloseFormWindow(*this, root_, true);
}

} // namespace orvo::accounts_forms

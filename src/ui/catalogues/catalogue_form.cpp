#include "ui/catalogues/catalogue_form.h"

#include "frame/messages.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/pickers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvo::ui {

using host::CatalogueField;

CatalogueForm::~CatalogueForm() = default;

QWidget* CatalogueForm::BuildWidget() {
    if (!GetOrvoObjectUIO() && FormName() == host::kOwnFirmFormName)
        SetOrvoObjectUIO(host::CatalogueEditor::OwnFirmObject());
    editor_ = host::CatalogueEditor::For(GetOrvoObjectUIO());

    root_ = new QWidget;
    root_->setMinimumWidth(520);
    auto* column = new QVBoxLayout(root_);
    auto* form = new QFormLayout;
    column->addLayout(form);
    if (editor_)
        for (const CatalogueField& f : editor_->Fields())
            addField(root_, form, f);
    buildExtra(root_, column);

    auto* buttons = new QHBoxLayout;
    write_ = new QPushButton(QStringLiteral("Įrašyti"), root_);
    write_->setObjectName(QStringLiteral("cmdWrite"));
    auto* cancel = new QPushButton(QStringLiteral("Atšaukti"), root_);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    delete_ = new QPushButton(QStringLiteral("Panaikinti"), root_);
    delete_->setObjectName(QStringLiteral("cmdDelete"));
    auto* closeButton = new QPushButton(QStringLiteral("Uždaryti"), root_);
    closeButton->setObjectName(QStringLiteral("SSCClose"));
    buttons->addWidget(write_);
    buttons->addWidget(cancel);
    buttons->addWidget(delete_);
    buttons->addStretch(1);
    buttons->addWidget(closeButton);
    column->addLayout(buttons);
    QObject::connect(write_, &QPushButton::clicked, root_, [this]() { Write(); });
    QObject::connect(cancel, &QPushButton::clicked, root_, [this]() { Cancel(); });
    QObject::connect(delete_, &QPushButton::clicked, root_, [this]() { Delete(); });
    QObject::connect(closeButton, &QPushButton::clicked, root_, [this]() { CloseForm(); });

    fill();
    return root_;
}

void CatalogueForm::buildExtra(QWidget*, QVBoxLayout*) {}

void CatalogueForm::addField(QWidget* root, QFormLayout* form, const CatalogueField& f) {
    switch (f.Type) {
    case CatalogueField::Kind::Flag: {
        auto* check = new QCheckBox(f.Caption, root);
        check->setObjectName(QStringLiteral("chk") + f.Name);
        QObject::connect(check, &QCheckBox::toggled, root, [this, name = f.Name](bool on) {
            if (!filling_)
                editor_->SetFlag(name, on);
        });
        form->addRow(QString(), check);
        controls_.insert(f.Name, check);
        return;
    }
    case CatalogueField::Kind::Choice: {
        auto* combo = new QComboBox(root);
        combo->setObjectName(QStringLiteral("cmb") + f.Name);
        QObject::connect(combo, &QComboBox::currentIndexChanged, root,
                         [this, combo, name = f.Name](int index) {
                             if (!filling_ && index >= 0)
                                 editor_->SetText(name, combo->itemData(index).toString());
                         });
        form->addRow(f.Caption, combo);
        controls_.insert(f.Name, combo);
        return;
    }
    case CatalogueField::Kind::Reference: {
        auto* shown = new QLineEdit(root);
        shown->setObjectName(QStringLiteral("txt") + f.Name);
        shown->setReadOnly(true);
        auto* pick = new QPushButton(QStringLiteral("..."), root);
        pick->setObjectName(QStringLiteral("cmd") + f.Name);
        pick->setToolTip(QStringLiteral("Pasirinkti"));
        auto* row = new QHBoxLayout;
        row->addWidget(shown, 1);
        row->addWidget(pick);
        QObject::connect(pick, &QPushButton::clicked, root,
                         [this, name = f.Name]() { Pick(name); });
        form->addRow(f.Caption, row);
        controls_.insert(f.Name, shown);
        return;
    }
    case CatalogueField::Kind::Text:
    case CatalogueField::Kind::Number: {
        auto* edit = new QLineEdit(root);
        edit->setObjectName(QStringLiteral("txt") + f.Name);
        if (f.Type == CatalogueField::Kind::Number)
            edit->setAlignment(Qt::AlignRight);
        QObject::connect(edit, &QLineEdit::textChanged, root,
                         [this, name = f.Name](const QString& text) {
                             if (!filling_)
                                 editor_->SetText(name, text);
                         });
        form->addRow(f.Caption, edit);
        controls_.insert(f.Name, edit);
        return;
    }
    }
}

void CatalogueForm::fill() {
    if (!editor_) {
        root_->setWindowTitle(FormName());
        return;
    }
    filling_ = true;
    for (const CatalogueField& f : editor_->Fields()) {
        QWidget* control = controls_.value(f.Name);
        if (auto* check = qobject_cast<QCheckBox*>(control)) {
            check->setChecked(editor_->Flag(f.Name));
        } else if (auto* combo = qobject_cast<QComboBox*>(control)) {
            combo->clear();
            for (const host::CatalogueChoice& c : editor_->Choices(f.Name))
                combo->addItem(c.Text, c.Value);
            combo->setCurrentIndex(combo->findData(editor_->Text(f.Name)));
        } else if (auto* edit = qobject_cast<QLineEdit*>(control)) {
            edit->setText(f.Type == CatalogueField::Kind::Reference ? editor_->ReferenceText(f.Name)
                                                                    : editor_->Text(f.Name));
        }
    }
    fillExtra();
    filling_ = false;
    fillButtons();
    root_->setWindowTitle(editor_->WindowTitle());
}

void CatalogueForm::fillButtons() {
    const RightsRecord& rights = editor_->Rights();
    write_->setEnabled(editor_->IsNew() ? rights.Create != 0 : rights.Edit != 0);
    delete_->setEnabled(!editor_->IsNew() && rights.Delete != 0);
}

void CatalogueForm::Pick(const QString& field) {
    const host::CatalogueField* f = editor_ ? editor_->FieldNamed(field) : nullptr;
    const OrvoServicesPtr services = OrvoS();
    const PickersPtr pickers = services ? services->PickersService() : nullptr;
    if (!f || !pickers)
        return;
    const QString picked = pickers->PickObject(
        f->PickKinds, QStringLiteral("Pasirinkite: ") + f->Caption.toLower(), QString(), QString());
    if (!editor_->TakeReference(field, picked))
        return;
    if (auto* edit = qobject_cast<QLineEdit*>(controls_.value(field)))
        edit->setText(editor_->ReferenceText(field));
}

void CatalogueForm::Write() {
    if (editor_ && editor_->Save().ok())
        fill();
}

void CatalogueForm::Cancel() {
    if (editor_ && editor_->Undo().ok())
        fill();
}

void CatalogueForm::Delete() {
    if (!editor_ || editor_->IsNew())
        return;
    if (!AskQuestion(QStringLiteral("Ar tikrai norite panaikinti?")))
        return;
    if (editor_->Delete().ok())
        close(true);
}

bool CatalogueForm::CloseForm() {
    if (editor_ && editor_->Changed() && !AskQuestion(QStringLiteral("Uždaryti be išsaugojimo?")))
        return false;
    close(false);
    return true;
}

void CatalogueForm::close(bool accepted) {
    if (root_)
        if (auto* dialog = qobject_cast<QDialog*>(root_->window())) {
            accepted ? dialog->accept() : dialog->reject();
            return;
        }
    UnloadShowOrvoObject();
}

} // namespace orvo::ui

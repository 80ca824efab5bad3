// The probe form of the automation tests: a small window with a control of every kind
// the drivers work. Its rules make what they did visible: leaving txtName trims and
// capitalises the text (a rule "on leaving"); cmdOpen opens frmProbeAsk modally and
// writes what was typed there into lblResult; a double-click on a row of lvwRows writes
// the row's tag into lblResult; checking a row writes the checked count into lblChecked;
// frmProbeAsk's cmdNested asks again over itself;
// the action mnuClear clears txtName; cmdTwice shows two message boxes one after the
// other. It is registered as "frmProbe" (and its dialog as "frmProbeAsk").
#pragma once

#include "frame/form_registry.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "ui/shell/widget_form.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvo::ui::testing {

// The modal question of the probe: a line edit and OK/Cancel.
class ProbeAskForm : public WidgetForm {
public:
    ProbeAskForm() : WidgetForm(QStringLiteral("frmProbeAsk")) {}
    QString Answer;
    bool Accepted = false;

protected:
    QWidget* BuildWidget() override {
        auto* w = new QWidget;
        w->setWindowTitle(QStringLiteral("Klausimas"));
        auto* layout = new QVBoxLayout(w);
        auto* edit = new QLineEdit(w);
        edit->setObjectName(QStringLiteral("txtAnswer"));
        auto* ok = new QPushButton(QStringLiteral("Gerai"), w);
        ok->setObjectName(QStringLiteral("cmdOK"));
        auto* cancel = new QPushButton(QStringLiteral("Atšaukti"), w);
        cancel->setObjectName(QStringLiteral("cmdCancel"));
        auto* nested = new QPushButton(QStringLiteral("Dar kartą"), w);
        nested->setObjectName(QStringLiteral("cmdNested"));
        layout->addWidget(edit);
        layout->addWidget(ok);
        layout->addWidget(cancel);
        layout->addWidget(nested);
        // The same question once more, over this one; its answer comes back here.
        QObject::connect(nested, &QPushButton::clicked, edit, [edit]() {
            auto inner = std::make_shared<ProbeAskForm>();
            inner->Show(true);
            if (inner->Accepted)
                edit->setText(inner->Answer);
        });
        QObject::connect(ok, &QPushButton::clicked, w, [this, edit, w]() {
            Answer = edit->text();
            Accepted = true;
            if (auto* dialog = qobject_cast<QDialog*>(w->window()))
                dialog->accept();
        });
        QObject::connect(cancel, &QPushButton::clicked, w, [w]() {
            if (auto* dialog = qobject_cast<QDialog*>(w->window()))
                dialog->reject();
        });
        return w;
    }
};

class ProbeForm : public WidgetForm {
public:
    ProbeForm() : WidgetForm(QStringLiteral("frmProbe")) {}

protected:
    QWidget* BuildWidget() override {
        auto* w = new QWidget;
        w->setWindowTitle(QStringLiteral("Bandomoji forma"));
        auto* layout = new QVBoxLayout(w);
        auto add = [w, layout](QWidget* control, const char* name) {
            control->setObjectName(QString::fromLatin1(name));
            control->setParent(w);
            layout->addWidget(control);
        };
        auto* object = new QLabel;
        add(object, "lblObject");
        if (const OrvoObjectUIOPtr uio = GetOrvoObjectUIO())
            object->setText(uio->ClassName());

        auto* name = new QLineEdit;
        add(name, "txtName");
        QObject::connect(name, &QLineEdit::editingFinished, name, [name]() {
            QString text = name->text().trimmed();
            if (!text.isEmpty())
                text[0] = text[0].toUpper();
            name->setText(text);
        });
        auto* comment = new QTextEdit;
        add(comment, "txtComment");
        auto* count = new QSpinBox;
        count->setRange(0, 1000);
        add(count, "txtCount");
        auto* active = new QCheckBox(QStringLiteral("Aktyvus"));
        add(active, "chkActive");
        auto* optDebit = new QRadioButton(QStringLiteral("Debetas"));
        add(optDebit, "optDebit");
        auto* optCredit = new QRadioButton(QStringLiteral("Kreditas"));
        add(optCredit, "optCredit");
        optDebit->setChecked(true);
        auto* kind = new QComboBox;
        kind->addItems(
            {QStringLiteral("Pajamos"), QStringLiteral("Išlaidos"), QStringLiteral("Perkėlimas")});
        add(kind, "cmbKind");
        auto* kindChosen = new QLabel;
        add(kindChosen, "lblKind");
        QObject::connect(kind, &QComboBox::activated, kindChosen,
                         [kind, kindChosen](int i) { kindChosen->setText(kind->itemText(i)); });
        auto* date = new QDateEdit(QDate(2024, 1, 1));
        date->setDisplayFormat(QStringLiteral("yyyy.MM.dd"));
        add(date, "dtpDate");

        auto* rows = new QTreeWidget;
        rows->setHeaderLabels({QStringLiteral("Sąskaita"), QStringLiteral("Suma")});
        rows->setRootIsDecorated(false);
        const struct {
            const char* account;
            const char* sum;
            const char* tag;
            bool bold;
            QColor colour;
        } data[] = {{"2410", "100,00", "O02015001", false, QColor()},
                    {"5000", "-20,00", "O02015002", false, QColor(Qt::red)},
                    {"Iš viso", "80,00", "", true, QColor()}};
        for (const auto& d : data) {
            auto* item =
                new QTreeWidgetItem(rows, {QString::fromUtf8(d.account), QString::fromUtf8(d.sum)});
            if (*d.tag)
                item->setData(0, Qt::UserRole, QString::fromLatin1(d.tag));
            if (d.bold) {
                QFont font = item->font(0);
                font.setBold(true);
                item->setFont(0, font);
                item->setFont(1, font);
            } else {
                item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
                item->setCheckState(0, Qt::Unchecked);
            }
            if (d.colour.isValid())
                item->setForeground(1, d.colour);
        }
        add(rows, "lvwRows");
        auto* checked = new QLabel(QStringLiteral("0"));
        add(checked, "lblChecked");
        QObject::connect(rows, &QTreeWidget::itemChanged, checked, [rows, checked]() {
            int n = 0;
            for (int i = 0; i < rows->topLevelItemCount(); ++i)
                if (rows->topLevelItem(i)->checkState(0) == Qt::Checked)
                    ++n;
            checked->setText(QString::number(n));
        });

        auto* result = new QLabel;
        add(result, "lblResult");
        QObject::connect(rows, &QTreeWidget::itemDoubleClicked, result,
                         [result](QTreeWidgetItem* item) {
                             result->setText(QStringLiteral("dvigubas: ") +
                                             item->data(0, Qt::UserRole).toString());
                         });
        auto* open = new QPushButton(QStringLiteral("Klausti"));
        add(open, "cmdOpen");
        QObject::connect(open, &QPushButton::clicked, result, [result]() {
            auto ask = std::make_shared<ProbeAskForm>();
            ask->Show(true);
            result->setText(ask->Accepted ? QStringLiteral("atsakyta: ") + ask->Answer
                                          : QStringLiteral("atšaukta"));
        });
        auto* twice = new QPushButton(QStringLiteral("Du pranešimai"));
        add(twice, "cmdTwice");
        QObject::connect(twice, &QPushButton::clicked, result, [result, w]() {
            // Each box in its own scope: the second may stand where the first stood.
            for (const QString& text : {QStringLiteral("Pirmas"), QStringLiteral("Antras")}) {
                QMessageBox box(QMessageBox::Information, QStringLiteral("Orvo Apskaita"), text,
                                QMessageBox::Ok, w);
                box.setObjectName(QStringLiteral("MessageBox"));
                box.button(QMessageBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
                box.exec();
            }
            result->setText(QStringLiteral("abu parodyti"));
        });
        auto* disabled = new QPushButton(QStringLiteral("Negalima"));
        add(disabled, "cmdDisabled");
        disabled->setEnabled(false);
        auto* hidden = new QPushButton(QStringLiteral("Paslėptas"));
        add(hidden, "cmdHidden");
        hidden->hide();

        auto* clear = new QAction(QStringLiteral("Išvalyti"), w);
        clear->setObjectName(QStringLiteral("mnuClear"));
        QObject::connect(clear, &QAction::triggered, name, [name]() { name->clear(); });
        auto* tool = new QToolButton;
        tool->setDefaultAction(clear);
        add(tool, "tbrClear");
        return w;
    }
};

inline void RegisterProbeForms(FormRegistry& registry) {
    registry.Register(QStringLiteral("frmProbe"), []() { return std::make_shared<ProbeForm>(); });
    registry.Register(QStringLiteral("frmProbeAsk"),
                      []() { return std::make_shared<ProbeAskForm>(); });
}

} // namespace orvo::ui::testing

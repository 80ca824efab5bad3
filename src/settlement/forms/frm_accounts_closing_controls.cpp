#include "settlement/forms/frm_accounts_closing_controls.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>

namespace orvo::closing_controls {

QPushButton* Button(QWidget* parent, const char* name, const QString& text) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setAutoDefault(false);
    return b;
}

QLineEdit* Edit(QWidget* parent, const char* name) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(QString::fromLatin1(name));
    return e;
}

QComboBox* AccountBox(QWidget* parent, const char* name) {
    auto* c = new QComboBox(parent);
    c->setObjectName(QString::fromLatin1(name));
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    return c;
}

QDateEdit* DateBox(QWidget* parent, const char* name, const QString& format) {
    auto* d = new QDateEdit(parent);
    d->setObjectName(QString::fromLatin1(name));
    d->setCalendarPopup(true);
    d->setDisplayFormat(format);
    return d;
}

void ShowAccounts(QComboBox* box, const QStringList& accounts, const QString& account) {
    box->clear();
    box->addItems(accounts);
    box->setCurrentIndex(accounts.indexOf(account));
    box->setEditText(account);
}

} // namespace orvo::closing_controls

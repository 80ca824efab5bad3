// What the catalogue editors show of each kind: the fields in the order of the window,
// each with its Lithuanian caption and how it is edited (a line of text, a number, a
// check box, a choice from a list, or a reference picked from the host's objects); the
// window's title; the right key that guards the kind; and the name of the form that
// edits it, which the navigators ask the Forms service for.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo::host {

struct CatalogueField {
    enum class Kind { Text, Number, Flag, Choice, Reference };
    QString Name;
    QString Caption;
    Kind Type = Kind::Text;
    // For a reference: the kinds the picker offers, joined by ";".
    QString PickKinds;
};

// The fields of a kind's editor; empty for a kind that has none.
QVector<CatalogueField> CatalogueFieldsOf(const QString& code);
// "Įmonė", "Banko sąskaita" ...: the window's title for one record of the kind.
QString CatalogueRecordTitle(const QString& code);
// CFirms, CPerson, CEmployees, CBanks, CBankAccounts, CCurrency, CUsers.
QString CatalogueRightKeyOf(const QString& code);
// frmFirm, frmPerson, frmEmployee, frmBank, frmBankAccount, frmCurrency, frmUser; empty
// for a kind without an editor.
QString CatalogueFormNameOf(const QString& code);
// "Nauja įmonė", "Naujas bankas" ...: the menu caption of a new record of the kind.
QString CatalogueNewRecordCaption(const QString& code);
// The form of the firm that keeps the books.
inline const QString kOwnFirmFormName = QStringLiteral("frmMyFirm");
// Every kind that has an editor, in the order of the menus.
QStringList CatalogueEditorKinds();

} // namespace orvo::host

#include "host/catalogues/catalogue_editor_fields.h"

#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"

#include <QStringList>

namespace orvo::host {

namespace {

using K = CatalogueField::Kind;

CatalogueField text(const char* name, const char* caption) {
    return {QString::fromLatin1(name), QString::fromUtf8(caption), K::Text, QString()};
}

CatalogueField of(const char* name, const char* caption, K kind) {
    return {QString::fromLatin1(name), QString::fromUtf8(caption), kind, QString()};
}

QVector<CatalogueField> address() {
    return {text("Street", "Gatvė, namas"), text("City", "Miestas"),
            text("PostalCode", "Pašto kodas"), text("Country", "Šalis")};
}

QVector<CatalogueField> contacts() {
    return {text("Phone", "Telefonas"), text("EMail", "El. paštas")};
}

} // namespace

QVector<CatalogueField> CatalogueFieldsOf(const QString& code) {
    const QString kind = code.left(8);
    if (kind == kinds::Firm)
        return QVector<CatalogueField>{text("Name", "Pavadinimas"), text("Code", "Įmonės kodas"),
                                       text("VATCode", "PVM mokėtojo kodas"),
                                       text("SODRACode", "Sodros draudėjo kodas")} +
               address() + contacts() +
               QVector<CatalogueField>{text("Fax", "Faksas"),
                                       of("MyFirmFlag", "Knygas vedanti įmonė", K::Flag),
                                       text("Comment", "Komentaras")};
    if (kind == kinds::Person)
        return QVector<CatalogueField>{text("Name", "Vardas"), text("LastName", "Pavardė"),
                                       text("PersCode", "Asmens kodas"),
                                       text("VATCode", "PVM mokėtojo kodas")} +
               address() + contacts() + QVector<CatalogueField>{text("Comment", "Komentaras")};
    if (kind == kinds::Employee)
        return QVector<CatalogueField>{text("Name", "Vardas"), text("LastName", "Pavardė"),
                                       text("UsrTitle", "Pareigos"),
                                       text("UsrPersCode", "Asmens kodas")} +
               address() + contacts() + QVector<CatalogueField>{text("Comment", "Komentaras")};
    if (kind == kinds::Bank)
        return QVector<CatalogueField>{text("Name", "Pavadinimas"), text("Code", "Banko kodas"),
                                       text("SWIFT", "SWIFT (BIC) kodas")} +
               address();
    if (kind == kinds::BankAccount) {
        CatalogueField owner = of("OwnerOIDR", "Savininkas", K::Reference);
        owner.PickKinds =
            kinds::Firm + QLatin1Char(';') + kinds::Person + QLatin1Char(';') + kinds::Employee;
        return {owner,
                text("AccountNumber", "Sąskaitos numeris (IBAN)"),
                of("BankID", "Bankas", K::Choice),
                of("CurrencyCode", "Valiuta", K::Choice),
                of("MainAccountFlag", "Pagrindinė savininko sąskaita", K::Flag),
                text("IntermediaryBankName", "Banko tarpininko pavadinimas"),
                text("IntermediaryBankCode", "Banko tarpininko kodas"),
                text("IntermediaryBankSWIFT", "Banko tarpininko SWIFT kodas"),
                text("IntermediaryBankStreet", "Banko tarpininko gatvė"),
                text("IntermediaryBankCity", "Banko tarpininko miestas"),
                text("IntermediaryBankCountry", "Banko tarpininko šalis"),
                text("IntermediaryAccountNumber", "Sąskaita banke tarpininke"),
                text("Comment", "Komentaras")};
    }
    if (kind == kinds::Currency)
        return {text("Code", "Kodas"),
                text("Name", "Pavadinimas"),
                text("State", "Valstybė"),
                text("TwoCurr", "Sveikų vienetų pavadinimas"),
                text("TwoSmall", "Šimtųjų dalių pavadinimas"),
                of("FixedRate", "Pastovus kursas (0 – kasdienis)", K::Number)};
    if (kind == kinds::User)
        return {text("Code", "Prisijungimo vardas"), text("Name", "Vardas ir pavardė"),
                text("UserPref", "Inicialai"), of("EmployeeID", "Darbuotojas", K::Choice),
                of("IsAdmin", "Administratorius (turi visas teises)", K::Flag)};
    return {};
}

QString CatalogueRecordTitle(const QString& code) {
    const QString kind = code.left(8);
    if (kind == kinds::Firm)
        return QStringLiteral("Įmonė");
    if (kind == kinds::Person)
        return QStringLiteral("Fizinis asmuo");
    if (kind == kinds::Employee)
        return QStringLiteral("Darbuotojas");
    if (kind == kinds::Bank)
        return QStringLiteral("Bankas");
    if (kind == kinds::BankAccount)
        return QStringLiteral("Banko sąskaita");
    if (kind == kinds::Currency)
        return QStringLiteral("Valiuta");
    if (kind == kinds::User)
        return QStringLiteral("Naudotojas");
    return QString();
}

QString CatalogueRightKeyOf(const QString& code) {
    const QString kind = code.left(8);
    if (kind == kinds::Firm)
        return QStringLiteral("CFirms");
    if (kind == kinds::Person)
        return QStringLiteral("CPerson");
    if (kind == kinds::Employee)
        return QStringLiteral("CEmployees");
    if (kind == kinds::Bank)
        return QStringLiteral("CBanks");
    if (kind == kinds::BankAccount)
        return QStringLiteral("CBankAccounts");
    if (kind == kinds::Currency)
        return QStringLiteral("CCurrency");
    if (kind == kinds::User)
        return QStringLiteral("CUsers");
    return QString();
}

QString CatalogueFormNameOf(const QString& code) {
    const QString kind = code.left(8);
    if (kind == kinds::Firm)
        return QStringLiteral("frmFirm");
    if (kind == kinds::Person)
        return QStringLiteral("frmPerson");
    if (kind == kinds::Employee)
        return QStringLiteral("frmEmployee");
    if (kind == kinds::Bank)
        return QStringLiteral("frmBank");
    if (kind == kinds::BankAccount)
        return QStringLiteral("frmBankAccount");
    if (kind == kinds::Currency)
        return QStringLiteral("frmCurrency");
    if (kind == kinds::User)
        return QStringLiteral("frmUser");
    return QString();
}

QStringList CatalogueEditorKinds() {
    return {kinds::Firm,        kinds::Person,   kinds::Employee, kinds::Bank,
            kinds::BankAccount, kinds::Currency, kinds::User};
}

} // namespace orvo::host

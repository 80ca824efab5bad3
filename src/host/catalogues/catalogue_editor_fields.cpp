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

namespace {

// What the editors and navigators know of each kind with an editor, in menu order.
struct KindInfo {
    QString Code;
    QString Title;
    QString RightKey;
    QString FormName;
    QString NewCaption;
};

const QVector<KindInfo>& kindInfos() {
    static const QVector<KindInfo> infos = {
        {kinds::Firm, QStringLiteral("Įmonė"), QStringLiteral("CFirms"), QStringLiteral("frmFirm"),
         QStringLiteral("Nauja įmonė")},
        {kinds::Person, QStringLiteral("Fizinis asmuo"), QStringLiteral("CPerson"),
         QStringLiteral("frmPerson"), QStringLiteral("Naujas fizinis asmuo")},
        {kinds::Employee, QStringLiteral("Darbuotojas"), QStringLiteral("CEmployees"),
         QStringLiteral("frmEmployee"), QStringLiteral("Naujas darbuotojas")},
        {kinds::Bank, QStringLiteral("Bankas"), QStringLiteral("CBanks"), QStringLiteral("frmBank"),
         QStringLiteral("Naujas bankas")},
        {kinds::BankAccount, QStringLiteral("Banko sąskaita"), QStringLiteral("CBankAccounts"),
         QStringLiteral("frmBankAccount"), QStringLiteral("Nauja banko sąskaita")},
        {kinds::Currency, QStringLiteral("Valiuta"), QStringLiteral("CCurrency"),
         QStringLiteral("frmCurrency"), QStringLiteral("Nauja valiuta")},
        {kinds::User, QStringLiteral("Naudotojas"), QStringLiteral("CUsers"),
         QStringLiteral("frmUser"), QStringLiteral("Naujas naudotojas")},
    };
    return infos;
}

const KindInfo* infoOf(const QString& code) {
    const QString kind = code.left(8);
    for (const KindInfo& info : kindInfos())
        if (info.Code == kind)
            return &info;
    return nullptr;
}

} // namespace

QString CatalogueRecordTitle(const QString& code) {
    const KindInfo* info = infoOf(code);
    return info ? info->Title : QString();
}

QString CatalogueRightKeyOf(const QString& code) {
    const KindInfo* info = infoOf(code);
    return info ? info->RightKey : QString();
}

QString CatalogueFormNameOf(const QString& code) {
    const KindInfo* info = infoOf(code);
    return info ? info->FormName : QString();
}

QString CatalogueNewRecordCaption(const QString& code) {
    const KindInfo* info = infoOf(code);
    return info ? info->NewCaption : QString();
}

QStringList CatalogueEditorKinds() {
    QStringList codes;
    for (const KindInfo& info : kindInfos())
        codes << info.Code;
    return codes;
}

} // namespace orvo::host

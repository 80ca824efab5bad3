#include "host/storage/catalogue_schema.h"

#include "host/storage/database.h"

namespace orvo::host {

namespace {

using CT = ColumnType;

// The address every addressee kind carries: payment orders and printed forms read it
// whatever the kind of the addressee.
QVector<ColumnDef> AddressColumns() {
    return {
        Column(QStringLiteral("Street"), CT::Text),
        Column(QStringLiteral("City"), CT::Text),
        Column(QStringLiteral("Country"), CT::Text),
        Column(QStringLiteral("PostalCode"), CT::Text),
    };
}

TableDef Settings() {
    // UserID 0 holds what is the same for every user of the book.
    return {QStringLiteral("Settings"),
            {Column(QStringLiteral("UserID"), CT::Integer, true, QStringLiteral("0")),
             Column(QStringLiteral("Section"), CT::Text, true),
             Column(QStringLiteral("Key"), CT::Text, true),
             Column(QStringLiteral("Value"), CT::Text)},
            {QStringLiteral("UserID"), QStringLiteral("Section"), QStringLiteral("Key")},
            {}};
}

TableDef Constants() {
    // The session's constants by name (BaseCurrency). The title of message boxes is the
    // program's name and is not stored.
    return {
        QStringLiteral("Constants"),
        {Column(QStringLiteral("Name"), CT::Text, true), Column(QStringLiteral("Value"), CT::Text)},
        {QStringLiteral("Name")},
        {}};
}

TableDef Employees() {
    return {QStringLiteral("Employees"),
            QVector<ColumnDef>{IdColumn(), Column(QStringLiteral("Name"), CT::Text),
                               Column(QStringLiteral("LastName"), CT::Text),
                               Column(QStringLiteral("UsrTitle"), CT::Text),
                               Column(QStringLiteral("UsrPersCode"), CT::Text)} +
                AddressColumns() +
                QVector<ColumnDef>{Column(QStringLiteral("Phone"), CT::Text),
                                   Column(QStringLiteral("EMail"), CT::Text),
                                   Column(QStringLiteral("Comment"), CT::Text)},
            {},
            {}};
}

TableDef Users() {
    return {QStringLiteral("Users"),
            {IdColumn(),
             {QStringLiteral("Code"), CT::Text, true, true, {}, {}, false},
             Column(QStringLiteral("Name"), CT::Text),
             Column(QStringLiteral("UserPref"), CT::Text),
             FlagColumn(QStringLiteral("IsAdmin")),
             ForeignKey(QStringLiteral("EmployeeID"), QStringLiteral("Employees(ID)"), false)},
            {},
            {}};
}

TableDef Rights() {
    // The five flags in the order of the rights record: read, delete, edit, create and
    // the fifth flag the host defines.
    return {QStringLiteral("Rights"),
            {ForeignKey(QStringLiteral("UserID"), QStringLiteral("Users(ID)"), true, true),
             Column(QStringLiteral("RightKey"), CT::Text, true),
             FlagColumn(QStringLiteral("ReadFlag")), FlagColumn(QStringLiteral("DeleteFlag")),
             FlagColumn(QStringLiteral("EditFlag")), FlagColumn(QStringLiteral("CreateFlag")),
             FlagColumn(QStringLiteral("FifthFlag"))},
            {QStringLiteral("UserID"), QStringLiteral("RightKey")},
            {}};
}

TableDef Firms() {
    // ParentID makes a firm a branch of another, for the journals that take a firm
    // "with its branches".
    return {QStringLiteral("Firms"),
            QVector<ColumnDef>{IdColumn(), Column(QStringLiteral("Name"), CT::Text, true),
                               Column(QStringLiteral("Code"), CT::Text),
                               Column(QStringLiteral("VATCode"), CT::Text),
                               Column(QStringLiteral("SODRACode"), CT::Text)} +
                AddressColumns() +
                QVector<ColumnDef>{
                    Column(QStringLiteral("Phone"), CT::Text),
                    Column(QStringLiteral("Fax"), CT::Text),
                    Column(QStringLiteral("EMail"), CT::Text),
                    ForeignKey(QStringLiteral("ParentID"), QStringLiteral("Firms(ID)"), false),
                    FlagColumn(QStringLiteral("MyFirmFlag")),
                    Column(QStringLiteral("Comment"), CT::Text)},
            {},
            {}};
}

TableDef Persons() {
    return {QStringLiteral("Persons"),
            QVector<ColumnDef>{IdColumn(), Column(QStringLiteral("Name"), CT::Text),
                               Column(QStringLiteral("LastName"), CT::Text),
                               Column(QStringLiteral("PersCode"), CT::Text),
                               Column(QStringLiteral("VATCode"), CT::Text)} +
                AddressColumns() +
                QVector<ColumnDef>{Column(QStringLiteral("Phone"), CT::Text),
                                   Column(QStringLiteral("EMail"), CT::Text),
                                   Column(QStringLiteral("Comment"), CT::Text)},
            {},
            {}};
}

TableDef Banks() {
    return {QStringLiteral("Banks"),
            QVector<ColumnDef>{IdColumn(), Column(QStringLiteral("Name"), CT::Text, true),
                               Column(QStringLiteral("Code"), CT::Text),
                               Column(QStringLiteral("SWIFT"), CT::Text)} +
                AddressColumns(),
            {},
            {}};
}

TableDef BankAccounts() {
    // OwnerOIDR is the reference of the owner as the system writes references: the
    // object code of a firm, person or employee followed by its ID. CurrencyCode is
    // three blanks for the base currency. The intermediary bank is what an
    // international payment order prints for the addressee.
    return {QStringLiteral("BankAccounts"),
            {IdColumn(), Column(QStringLiteral("OwnerOIDR"), CT::Text, true),
             Column(QStringLiteral("AccountNumber"), CT::Text, true),
             ForeignKey(QStringLiteral("BankID"), QStringLiteral("Banks(ID)"), false),
             Column(QStringLiteral("CurrencyCode"), CT::Text, true, QStringLiteral("'   '")),
             FlagColumn(QStringLiteral("MainAccountFlag")),
             Column(QStringLiteral("IntermediaryBankName"), CT::Text),
             Column(QStringLiteral("IntermediaryBankCode"), CT::Text),
             Column(QStringLiteral("IntermediaryBankStreet"), CT::Text),
             Column(QStringLiteral("IntermediaryBankCity"), CT::Text),
             Column(QStringLiteral("IntermediaryBankCountry"), CT::Text),
             Column(QStringLiteral("IntermediaryBankSWIFT"), CT::Text),
             Column(QStringLiteral("IntermediaryAccountNumber"), CT::Text),
             Column(QStringLiteral("Comment"), CT::Text)},
            {},
            {}};
}

TableDef Currencies() {
    // TwoCurr and TwoSmall are the words for the whole unit and its hundredth part;
    // FixedRate above 0 replaces the daily rate.
    return {QStringLiteral("Currencies"),
            {IdColumn(),
             {QStringLiteral("Code"), CT::Text, true, true, {}, {}, false},
             Column(QStringLiteral("Name"), CT::Text),
             Column(QStringLiteral("State"), CT::Text),
             Column(QStringLiteral("TwoCurr"), CT::Text),
             Column(QStringLiteral("TwoSmall"), CT::Text),
             FlagColumn(QStringLiteral("BaseCurrency")),
             Column(QStringLiteral("FixedRate"), CT::Double, true, QStringLiteral("0"))},
            {},
            {}};
}

TableDef CurrencyRates() {
    // Rate is base currency per unit; CurrencyRate the rate as quoted (units per euro
    // under a euro base).
    return {QStringLiteral("CurrencyRates"),
            {ForeignKey(QStringLiteral("CurrencyID"), QStringLiteral("Currencies(ID)"), true, true),
             Column(QStringLiteral("DateD"), CT::Date, true),
             Column(QStringLiteral("Rate"), CT::Double, true),
             Column(QStringLiteral("CurrencyRate"), CT::Double, true, QStringLiteral("0"))},
            {QStringLiteral("CurrencyID"), QStringLiteral("DateD")},
            {}};
}

IndexDef Index(const QString& name, const QString& table, const QStringList& columns,
               bool unique = false, const QString& where = {}) {
    return {name, table, columns, unique, where};
}

} // namespace

Migration CatalogueMigration() {
    Migration m;
    m.Version = 1;
    m.Title = QStringLiteral("Nustatymai, naudotojai ir bendri žinynai");
    m.Sequences = {SequenceDef{kRecordSequence}};
    m.Tables = {Settings(), Constants(), Employees(),    Users(),      Rights(),       Firms(),
                Persons(),  Banks(),     BankAccounts(), Currencies(), CurrencyRates()};
    m.Indexes = {
        // Only one firm keeps the books, only one account of an owner is its main one,
        // and only one currency is the base.
        Index(QStringLiteral("FirmsMyFirm"), QStringLiteral("Firms"),
              {QStringLiteral("MyFirmFlag")}, true, QStringLiteral("MyFirmFlag <> 0")),
        Index(QStringLiteral("FirmsParent"), QStringLiteral("Firms"), {QStringLiteral("ParentID")}),
        Index(QStringLiteral("FirmsCode"), QStringLiteral("Firms"), {QStringLiteral("Code")}),
        Index(QStringLiteral("PersonsPersCode"), QStringLiteral("Persons"),
              {QStringLiteral("PersCode")}),
        Index(QStringLiteral("BankAccountsOwner"), QStringLiteral("BankAccounts"),
              {QStringLiteral("OwnerOIDR")}),
        Index(QStringLiteral("BankAccountsMain"), QStringLiteral("BankAccounts"),
              {QStringLiteral("OwnerOIDR")}, true, QStringLiteral("MainAccountFlag <> 0")),
        Index(QStringLiteral("BankAccountsNumber"), QStringLiteral("BankAccounts"),
              {QStringLiteral("AccountNumber")}),
        Index(QStringLiteral("CurrenciesBase"), QStringLiteral("Currencies"),
              {QStringLiteral("BaseCurrency")}, true, QStringLiteral("BaseCurrency <> 0")),
    };
    m.Data = {Statement{QStringLiteral("INSERT INTO Constants (Name, Value) VALUES (?, ?)"),
                        {Value(QStringLiteral("BaseCurrency")), Value(QStringLiteral("EUR"))}}};
    return m;
}

} // namespace orvo::host

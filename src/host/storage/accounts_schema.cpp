#include "host/storage/accounts_schema.h"

#include "host/storage/database.h"

namespace orvo::host {

namespace {

using CT = ColumnDef;
using T = ColumnType;

TableDef Accounts() {
    return {QStringLiteral("Accounts"),
            {IdColumn(),
             ForeignKey(QStringLiteral("ParentID"), QStringLiteral("Accounts(ID)"), false),
             Column(QStringLiteral("OwnCode"), T::Text, true, QStringLiteral("''")),
             {QStringLiteral("Account"), T::Text, true, true, {}, {}, false},
             Column(QStringLiteral("Name"), T::Text, true),
             Column(QStringLiteral("Type"), T::Text, true, QStringLiteral("'D'")),
             FlagColumn(QStringLiteral("GroupFlag")),
             Column(QStringLiteral("NewID"), T::Integer),
             Column(QStringLiteral("BRAPropertyID"), T::Integer, true, QStringLiteral("0"))},
            {},
            {}};
}

TableDef BRASettings() {
    return {QStringLiteral("BRASettings"),
            {IdColumn(),
             Column(QStringLiteral("Name"), T::Text, true),
             {QStringLiteral("Code"), T::Text, true, true, {}, {}, false}},
            {},
            {}};
}

// The two addressee tables share their shape: rows nested in the account's record.
TableDef AddresseeKinds(const QString& name) {
    return {name,
            {IdColumn(),
             ForeignKey(QStringLiteral("AccountID"), QStringLiteral("Accounts(ID)"), true, true),
             Column(QStringLiteral("Sign"), T::Integer, true, QStringLiteral("0")),
             Column(QStringLiteral("FOID"), T::Text, true)},
            {},
            {}};
}

TableDef AccountLocks() {
    CT account =
        ForeignKey(QStringLiteral("AccountID"), QStringLiteral("Accounts(ID)"), true, true);
    account.Unique = true;
    return {QStringLiteral("AccountLocks"),
            {IdColumn(), account,
             Column(QStringLiteral("DateToHigh"), T::Date, true, QStringLiteral("'1900-01-01'")),
             Column(QStringLiteral("DateToLow"), T::Date, true, QStringLiteral("'1900-01-01'")),
             Column(QStringLiteral("UserOIDR"), T::Text),
             Column(QStringLiteral("ComponentID"), T::Integer, true, QStringLiteral("0"))},
            {},
            {}};
}

Statement Role(const char* code, const char* name) {
    return {QStringLiteral("INSERT INTO BRASettings (Name, Code) VALUES (?, ?)"),
            {Value(QString::fromUtf8(name)), Value(QString::fromUtf8(code))}};
}

} // namespace

Migration AccountsMigration() {
    Migration m;
    m.Version = 2;
    m.Title = QStringLiteral("Sąskaitų planas, sąskaitų atitikimai, adresatai ir blokavimas");
    m.Tables = {Accounts(), BRASettings(), AddresseeKinds(QStringLiteral("BRRequiredAddr")),
                AddresseeKinds(QStringLiteral("EnabledAddressee")), AccountLocks()};
    m.Indexes = {
        {QStringLiteral("AccountsParent"),
         QStringLiteral("Accounts"),
         {QStringLiteral("ParentID")},
         false,
         {}},
        {QStringLiteral("AccountsRole"),
         QStringLiteral("Accounts"),
         {QStringLiteral("BRAPropertyID")},
         false,
         {}},
        {QStringLiteral("BRRequiredAddrAccount"),
         QStringLiteral("BRRequiredAddr"),
         {QStringLiteral("AccountID")},
         false,
         {}},
        {QStringLiteral("EnabledAddresseeAccount"),
         QStringLiteral("EnabledAddressee"),
         {QStringLiteral("AccountID")},
         false,
         {}},
    };
    // The roles the program itself looks accounts up by; a book adds its accounts to them.
    m.Data = {
        Role("2710", "Banko sąskaitos"),
        Role("2720", "Kasa"),
        Role("240", "Pirkėjų įsiskolinimai"),
        Role("220", "Kitos gautinos sumos"),
        Role("450", "Skolos tiekėjams"),
        Role("460", "Kitos mokėtinos sumos"),
        Role("39", "Pelno (nuostolių) sąskaita"),
        Role("536", "Valiutos kurso pokyčio pelnas"),
        Role("636", "Valiutos kurso pokyčio nuostoliai"),
    };
    return m;
}

} // namespace orvo::host

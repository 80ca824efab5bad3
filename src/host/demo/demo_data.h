// The records of the demonstration book: the firm that keeps the books, its customers and
// suppliers, natural persons, employees, banks, currencies and bank accounts, as plain
// tables that CreateDemoBook writes. Names, codes, personal codes and account numbers are
// made up (personal codes and IBANs have valid check digits so that checks accept them);
// the banks are real Lithuanian banks with their public codes.
#pragma once

#include <QVector>

namespace orvo::host::demo {

struct DemoFirm {
    const char* Name;
    const char* Code;
    // Empty for a firm that is not a VAT payer.
    const char* VATCode;
    const char* Street;
    const char* City;
    const char* PostalCode;
    const char* Phone;
    const char* EMail;
    // Position of the head firm in the list for a branch, -1 for none.
    int Parent;
    const char* Comment;
};

struct DemoPerson {
    const char* Name;
    const char* LastName;
    const char* PersCode;
    // An employee's job title; empty for a natural person.
    const char* Title;
    const char* Street;
    const char* City;
    const char* PostalCode;
    const char* Phone;
    const char* EMail;
};

struct DemoBank {
    const char* Name;
    const char* Code;
    const char* SWIFT;
    const char* Street;
    const char* City;
    const char* PostalCode;
};

struct DemoCurrency {
    const char* Code;
    const char* Name;
    const char* State;
    const char* TwoCurr;
    const char* TwoSmall;
    // The band the quoted rate (units per euro) moves in; 0 for the base currency.
    double Low;
    double High;
};

enum class DemoOwner { Firm, Person, Employee };

struct DemoAccount {
    DemoOwner Owner;
    // Position of the owner in its list.
    int OwnerIndex;
    // Position of the bank in Banks().
    int BankIndex;
    // The eleven digits after the bank code in the IBAN.
    const char* AccountDigits;
    // Three letters, or three blanks for the base currency.
    const char* CurrencyCode;
    bool Main;
};

// The first firm is the one that keeps the books.
const QVector<DemoFirm>& Firms();
const QVector<DemoPerson>& Persons();
const QVector<DemoPerson>& Employees();
const QVector<DemoBank>& Banks();
// The first currency is the base one.
const QVector<DemoCurrency>& Currencies();
const QVector<DemoAccount>& Accounts();

// The Lithuanian IBAN of an account: "LT", two check digits, the five-digit bank code and
// the eleven digits of the account (20 characters, valid by the mod-97 rule).
QString LithuanianIban(const QString& bankCode, const QString& accountDigits);

} // namespace orvo::host::demo

// UIO0201500, the data object of a financial operation: a header (date, number, group,
// comment) that owns its entries. Every document of the system (payment order, cash
// order, advance report, closing) is stored as an operation of its own kind, so this
// one class serves the kinds O0201500 to O0201506.
//
// Besides what its core does, it answers the operation's queries (Properties, with the
// caches of accounts, currencies and addressees that live as long as the object), its
// commands (Methods, the one door through which editors change an operation; the
// commands live in the *_commands files and auto_numbering), and a Save after which a
// new operation that failed to store keeps every row for another attempt. The checks of
// an entry (accounts, currency sides, demanded addressees) are here too, since both the
// commands and the editors rely on them.
#pragma once

#include "core/dictionary.h"
#include "frame/orvo_object_uio_base.h"

#include <QStringList>

namespace orvo {

class UIO0201500 : public OrvoObjectUIOBase {
public:
    // `kind` is the object code the object is made for (O0201500 .. O0201506); it
    // becomes the object's OID and OType. The business object's methods stay those of
    // O0201500 for every kind.
    explicit UIO0201500(const QString& kind = QStringLiteral("O0201500"));
    static std::shared_ptr<UIO0201500> Create(const QString& kind = QStringLiteral("O0201500"));

    // The kinds this class serves.
    static QStringList Kinds();
    // The two lists of the Properties convention.
    static QStringList PlainQueries();
    static QStringList ParametrisedQueries();

    ValueResult Methods(const QString& name, const ValueArray& parameters) override;
    ResultRecord Save(const Value& rs2 = Value(), const Value& rs3 = Value()) override;

    // The demands of an entry: "D" (Sign 1) or "C" (any other) + FOID -> FOID, each key
    // once.
    static DictionaryPtr GetRequiredAddr(const RecordsetPtr& rsRequiredAddr);
    // Whether the addressees meet the demands: an empty map passes; no properties, or
    // fewer property rows than demands, fail; otherwise the rows whose side letter and
    // kind form a key are counted (two rows of one kind count twice) and the count must
    // equal the number of demands.
    static bool CheckRequiredAddr(const DictionaryPtr& dicRequiredAddr,
                                  const RecordsetPtr& rsBRProperties);
    // The first fault of the currency sides of an entry, or the empty text. A side with a
    // currency sum needs a code (three blanks count as none), a rate, and a base sum
    // equal to SumA at two places; a side with no currency sum passes.
    static QString CheckValiuta(const RecordsetPtr& rsBRCurrency, double sumA);

    // TestAccount(account): Value whether the chart has it ("0" never, no chart always).
    ValueResult TestAccount(const ValueArray& parameters);
    // TestOper([GUID [, warn]]): the checks of every entry (or of one), stopping at the
    // first fault; Code 999, or 777 when `warn` is true, and Value false on a fault.
    ValueResult TestOper(const ValueArray& parameters);

    // The object as a shared pointer, for handing to forms and routines; null when the
    // object is not owned by one.
    OrvoObjectUIOPtr Self();
    // The entries of the operation's row; null when the object has no row.
    RecordsetPtr Entries() const;

    // The caches, as the queries left them.
    DictionaryPtr AccountCache() const { return accounts_; }
    RecordsetPtr CurrencyCache() const { return currencyList_; }
    RecordsetPtr AddresseeCache() const { return addresseeList_; }

protected:
    std::optional<ValueResult> OwnProperty(const QString& name, const QString& parameters) override;

private:
    ValueResult dispatch(const QString& name, const ValueArray& parameters);
    ValueResult currencyList(const QString& parameters);
    ValueResult addresseeList();
    ValueResult accountList();
    ValueResult getObjectForm(const QString& parameters);

    DictionaryPtr accounts_;
    RecordsetPtr currencyList_;
    RecordsetPtr addresseeList_;
};

} // namespace orvo

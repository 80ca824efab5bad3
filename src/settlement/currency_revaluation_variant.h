// CurrencyRevaluationVariant is one saved choice of the revaluation window: the mode,
// the account, the balance side and the addressee, so that an account revalued every
// month is picked again from a list instead of being set up anew. The variants of a
// user are kept in one settings text, the variants joined with "#" and the fields of
// one variant with "_"; CurrencyRevaluationVariants reads, extends and stores that text.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace orvo {

struct CurrencyRevaluationVariant {
    // "ByOpers" (every open debt revalued by itself) or "ByAddr" (the account's balance
    // per currency).
    QString Mode;
    QString Account;
    // "D" or "K".
    QString Side;
    // Empty, a bare kind of eight characters, or a full reference.
    QString AddresseeRef;
    QString AddresseeText;

    // The stored form: mode, account, side, reference and text joined with "_".
    QString Stored() const;
    static CurrencyRevaluationVariant FromStored(const QString& text);
    // As the list shows it: the account, in the ByOpers mode a blank and the side
    // letter, then " * " and the addressee text.
    QString Caption() const;
    bool SameAs(const CurrencyRevaluationVariant& other) const;
};

class CurrencyRevaluationVariants {
public:
    // The settings section and key under which the variants live.
    static QString Section();
    static QString Key();

    // Reads the stored variants of the user; none when no settings service is there.
    void Load();
    const QVector<CurrencyRevaluationVariant>& Items() const { return items_; }

    // Adds a variant and stores the list. Refused with "Neužduota sąskaita !" for an
    // empty account and "Toks variantas jau išsaugotas !" for one already kept; the
    // refusal is shown as a warning and false comes back.
    bool Add(const CurrencyRevaluationVariant& variant);
    // Removes the variant at `index` and stores the rest.
    bool Remove(int index);

private:
    void store() const;

    QVector<CurrencyRevaluationVariant> items_;
};

} // namespace orvo

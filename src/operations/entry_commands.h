// The commands of the operation object that make and remove entries: CreateBR (one
// plain entry), AddBR (one entry with its currency sides and addressees), AddTemplate
// (the entries of a stored template, scaled by each line's factor) and DeleteBR. Every
// document editor builds its entries through these, so the rules of base-currency
// conversion and of attaching addressees live here and not in the forms. The counts of
// parameters are checked by the dispatcher before a command runs.
#pragma once

#include "core/results.h"
#include "core/value.h"

namespace orvo {

class UIO0201500;

class EntryCommands {
public:
    explicit EntryCommands(UIO0201500& operation) : op_(operation) {}

    // CreateBR(DateD, SumA, AccountD, AccountC [, Info [, Tag]]): Value true.
    ValueResult CreateBR(const ValueArray& parameters);

    // AddBR(AccountD, AccountC, Sum, Addressees, Sign, CurrD, RateD, SumC, CurrC, RateC,
    // Info, Tag, DateD, FGUID, TradeOperationType, VATTariff, RestoringSign), four to
    // seventeen of them: Value is the new entry's GUID.
    ValueResult AddBR(const ValueArray& parameters);

    // AddTemplate(BRTemplateID, Sum, Addressees, Sign, CurrD, RateD, SumC, CurrC, RateC,
    // TradeOperationType, VATTariff, RestoringSign), three to twelve: an entry for each
    // line of the template that the template object (O0201600) answers to
    // TemplateAccAndAddr. A line carries ID, GUID, AccountD, AccountC, Factor and its
    // demanded addressees as a nested RequiredAddr (or BRTemplateAddr) of Sign and FOID.
    // Value true.
    ValueResult AddTemplate(const ValueArray& parameters);

    // DeleteBR(GUID_Or_Account [, iSign [, FOIDR]]). Only a 16-bit 9 as iSign makes the
    // first parameter a GUID; with iSign 1, -1 or 0 (the default) it is an account on
    // the debit side, the credit side or either. With FOIDR (longer than eight
    // characters) an entry that has addressees but none with that reference (on side
    // iSign, unless 0) is spared. The command is given no sum, so no entry is spared for
    // its SumA. Each deleted entry's addressees, currency rows and demands that were
    // never stored go with it. Value true; a wrong iSign gives Value false and
    // "DeleteBR : Klaidingi parametrai !".
    ValueResult DeleteBR(const ValueArray& parameters);

private:
    UIO0201500& op_;
};

} // namespace orvo

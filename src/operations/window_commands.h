// The commands of the operation object that open a window on it: GetCommentList (the
// comment templates), ShowBR (the card of one entry), ShowBROper (the operation editor,
// modally) and ShowProtocol (who made and changed the operation). Windows come from the
// Forms service by name; where a face has none the command refuses clearly.
#pragma once

#include "core/results.h"
#include "core/value.h"

namespace orvo {

class UIO0201500;

class WindowCommands {
public:
    explicit WindowCommands(UIO0201500& operation) : op_(operation) {}

    // GetCommentList(Text): Value is the chosen comment, empty when cancelled.
    ValueResult GetCommentList(const ValueArray& parameters);

    // ShowBR(GUID [, restricted-or-kinds [, currenciesEditable [, tab]]]): Value is the
    // card's result flag (16-bit).
    ValueResult ShowBR(const ValueArray& parameters);
    // The kinds of addressee a restricted card offers for an operation whose document
    // is `foidr`: for a document of kind O0201501 to O0201505 the operation entry, bank
    // account, bank, firm, natural person and employee kinds, concatenated; otherwise
    // none.
    static QString AllowedKindsFor(const QString& foidr);

    // ShowBROper: frmBROper, modal, on this object; Value as the editor leaves it.
    ValueResult ShowBROper();
    // ShowProtocol: the four stamps of the protocol in a small modal window.
    ValueResult ShowProtocol();

private:
    UIO0201500& op_;
};

} // namespace orvo

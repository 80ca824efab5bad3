// The shape of a financial operation as it travels in a Recordset: the one source of
// truth for its fields. The operation's one row holds its entries (BR); each entry holds
// its foreign-currency sides (BRCurrency), its addressees and references (BRProperties)
// and the kinds of addressee its accounts demand (RequiredAddr). The host maps this
// shape to its tables, and a blank operation is Recordset::Create(OperationFields())
// with one row added.
//
// Texts have a defined size, and a recordset refuses a longer text, so every size below
// is chosen to hold what the system writes there:
//   references (OIDR, FOIDR, user references)  50  an object code and a record number
//   GUID, BRGUID, FGUID, LockGUID, BRTemplateAccGUID  38  "{8-4-4-4-12}" in braces
//   Comment  1000   the operation editor cuts longer text
//   Serija     20   a document series
//   Number     50   a number built from the group's mask, or typed
//   Parameters 4000 the document's own fields, tokens joined by "#"
//   user names 100  the protocol cuts a longer name to this size
//   AccountD, AccountC  20  account numbers of the chart
//   Info     1000   the entry's text
//   FCurrencyCode  3  three letters, or three blanks for the base currency
//   ShowString  800  the addressee's display text, cut on writing
//   FOID       20   an object code (eight characters) with room to spare
#pragma once

#include "core/field_type.h"

namespace orvo::OperationRecord {

inline constexpr int ReferenceSize = 50;
inline constexpr int GuidSize = 38;
inline constexpr int CommentSize = 1000;
inline constexpr int SerijaSize = 20;
inline constexpr int NumberSize = 50;
inline constexpr int ParametersSize = 4000;
inline constexpr int UserNameSize = 100;
inline constexpr int AccountSize = 20;
inline constexpr int InfoSize = 1000;
inline constexpr int CurrencyCodeSize = 3;
inline constexpr int ShowStringSize = 800;
inline constexpr int KindSize = 20;

// BRCurrency: BRGUID, Sign (1 debit side, any other value credit side), RateCurr (base
// currency per foreign unit), SumCurr, FCurrencyCode, and ID, the stored row's number
// (Null until stored; last, so that the fields the component fills keep their places).
FieldDefs BRCurrencyFields();
// BRProperties: BRGUID, Sign, FOIDR (the addressee or the entry referred to),
// ShowString, and ID, the stored row's number (Null until stored).
FieldDefs BRPropertiesFields();
// RequiredAddr: Sign, FOID (the kind that must stand as an addressee on that side),
// BRTemplateAccGUID (the template line the demand came from).
FieldDefs RequiredAddrFields();
// BR, one row per entry: ID, GUID, DateD, SumA, AccountD, AccountC, Info, Tag,
// BRTemplateAccID, TradeOperationType, VATFlag, VATIndication, VATTariff, RestoringSign,
// CurrencyRateD, CurrencyRateC, FGUID, and the nested BRCurrency, BRProperties,
// RequiredAddr.
FieldDefs EntryFields();
// The operation row: OIDR, FOIDR, BROperGroupID, DateD, Comment, Serija, Number,
// VATRegisterIndication, LockGUID, Parameters, AutoNumber, OType, the protocol
// (CreatedByUserOIDR, CreatedByUserName, CreationDate, ChangedByUserOIDR,
// ChangedByUserName, CorrectionDate) and the nested BR.
FieldDefs OperationFields();

} // namespace orvo::OperationRecord

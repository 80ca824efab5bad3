// MethodContext is what a business-object method knows of the session it runs in:
// the open book, who is working, and the constants of the firm. The host fills one
// per session and hands it to its HostBusinessObject, which adds itself and its
// registry before every call, so that a method can run another method or list them.
#pragma once

#include <QString>
#include <QtGlobal>

namespace orvo {
class BusinessObject;
}

namespace orvo::host {

class Database;
class MethodRegistry;

struct MethodContext {
    // The open book; null when the session has none (only storage-free methods work).
    Database* database = nullptr;
    // The user working in this session: the record id and the login name.
    qint32 userId = 0;
    QString userLogin;
    // The base currency code of the book: "EUR", or "LTL" in older books.
    QString baseCurrency = QStringLiteral("EUR");
    // The firm that keeps the books, as an OIDR; empty when not chosen yet.
    QString myFirmOIDR;
    // The title of message boxes.
    QString title = QStringLiteral("Orvo Apskaita");

    // Set by HostBusinessObject before each call.
    const MethodRegistry* registry = nullptr;
    BusinessObject* businessObject = nullptr;
};

} // namespace orvo::host

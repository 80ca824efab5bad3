// Result codes and the Lithuanian texts of the storage layer. Every failure of storage
// reaches its caller as one of these codes with a text that names the book, so that the
// desktop and the command line can show it as it stands.
#pragma once

#include <QString>

namespace orvo::host::storage {

namespace codes {
// A statement, a transaction step or a parameter was refused by the database.
inline constexpr qint32 Failed = 1;
inline constexpr qint32 BookMissing = 2;
inline constexpr qint32 ReadOnly = 3;
// Not a book of this program: not an SQLite file, a foreign database, a broken file.
inline constexpr qint32 NotABook = 4;
// Written by a newer program: this build does not know its structure.
inline constexpr qint32 NewerBook = 5;
inline constexpr qint32 ConnectionFailed = 6;
} // namespace codes

namespace messages {
inline QString BookMissing(const QString& path) {
    return QStringLiteral("Knygos failas nerastas: %1").arg(path);
}
inline QString FolderMissing(const QString& folder) {
    return QStringLiteral("Knygos aplankas nerastas: %1").arg(folder);
}
inline QString FileReadOnly(const QString& path) {
    return QStringLiteral("Knygos failas tik skaitomas, į jį rašyti negalima: %1").arg(path);
}
inline QString FolderReadOnly(const QString& folder) {
    return QStringLiteral("Į knygos aplanką rašyti negalima: %1").arg(folder);
}
inline QString NotABook(const QString& location) {
    return QStringLiteral("Tai ne Orvo Apskaitos knyga: %1").arg(location);
}
inline QString Corrupt(const QString& path) {
    return QStringLiteral("Knygos failas sugadintas arba tai ne SQLite duomenų bazė: %1").arg(path);
}
inline QString NewerBook(const QString& location, int bookVersion, int knownVersion) {
    return QStringLiteral("Knyga įrašyta naujesnės programos versijos (duomenų versija %1, "
                          "ši programa pažįsta iki %2). Atnaujinkite programą: %3")
        .arg(bookVersion)
        .arg(knownVersion)
        .arg(location);
}
inline QString ConnectionFailed(const QString& location, const QString& reason) {
    QString text =
        QStringLiteral("Nepavyko prisijungti prie PostgreSQL serverio: %1").arg(location);
    if (!reason.isEmpty())
        text += QStringLiteral("\nServerio atsakymas: ") + reason;
    return text;
}
inline QString StatementFailed(const QString& reason) {
    return QStringLiteral("Duomenų bazės klaida: %1").arg(reason);
}
inline QString UnknownSequence(const QString& name) {
    return QStringLiteral("Nežinoma identifikatorių seka: %1").arg(name);
}
inline QString NoTransaction() {
    return QStringLiteral("Nėra pradėtos transakcijos.");
}
inline QString TransactionAborted() {
    return QStringLiteral("Transakcija atšaukta, nes vienas jos veiksmas nepavyko.");
}
inline QString UnsupportedParameter(int position, const QString& kind) {
    return QStringLiteral("%1-oji parametro reikšmė (%2) negali būti įrašyta į duomenų bazę.")
        .arg(position)
        .arg(kind);
}
inline QString ParameterCount(int expected, int given) {
    return QStringLiteral("Sakiniui reikia %1 parametrų, pateikta %2.").arg(expected).arg(given);
}
inline QString MigrationFailed(int version, const QString& reason) {
    return QStringLiteral("Nepavyko atnaujinti knygos struktūros iki versijos %1: %2")
        .arg(version)
        .arg(reason);
}
} // namespace messages

} // namespace orvo::host::storage

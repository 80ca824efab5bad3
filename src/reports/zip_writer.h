// Writes a ZIP archive in memory: the container of .xlsx and .docx files. Entries are
// deflated with zlib and stamped with one fixed time, so the same content always gives
// the same bytes (a test can compare files, a user's backup does not grow for nothing).
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace orvo::reports {

class ZipWriter {
public:
    // Adds an entry under `name` (forward slashes, no leading slash).
    void Add(const QString& name, const QByteArray& data);
    // The whole archive; empty when zlib refused to compress an entry.
    QByteArray Finish() const;

private:
    struct Entry {
        QByteArray Name;
        QByteArray Data;
    };
    QVector<Entry> entries_;
};

} // namespace orvo::reports

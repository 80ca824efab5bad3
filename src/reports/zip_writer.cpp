#include "reports/zip_writer.h"

#include <zlib.h>

namespace orvo::reports {

namespace {

// 1 January 2000, 00:00 in the archive's DOS format.
constexpr quint16 kDosTime = 0;
constexpr quint16 kDosDate = ((2000 - 1980) << 9) | (1 << 5) | 1;
constexpr quint16 kVersion = 20;
constexpr quint16 kUtf8Names = 0x0800;
constexpr quint16 kDeflated = 8;

void put16(QByteArray& out, quint16 v) {
    out.append(char(v & 0xff));
    out.append(char((v >> 8) & 0xff));
}

void put32(QByteArray& out, quint32 v) {
    put16(out, quint16(v & 0xffff));
    put16(out, quint16(v >> 16));
}

// Raw deflate (no zlib header), as the ZIP format wants it.
bool deflateRaw(const QByteArray& in, QByteArray& out) {
    z_stream s{};
    if (deflateInit2(&s, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return false;
    out.resize(int(deflateBound(&s, uLong(in.size()))));
    s.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(in.constData()));
    s.avail_in = uInt(in.size());
    s.next_out = reinterpret_cast<Bytef*>(out.data());
    s.avail_out = uInt(out.size());
    const int r = deflate(&s, Z_FINISH);
    out.resize(int(s.total_out));
    deflateEnd(&s);
    return r == Z_STREAM_END;
}

} // namespace

void ZipWriter::Add(const QString& name, const QByteArray& data) {
    entries_.append({name.toUtf8(), data});
}

QByteArray ZipWriter::Finish() const {
    QByteArray out;
    QByteArray central;
    for (const Entry& e : entries_) {
        QByteArray packed;
        if (!deflateRaw(e.Data, packed))
            return {};
        const quint32 crc = quint32(
            crc32(0L, reinterpret_cast<const Bytef*>(e.Data.constData()), uInt(e.Data.size())));
        const quint32 offset = quint32(out.size());

        put32(out, 0x04034b50);
        put16(out, kVersion);
        put16(out, kUtf8Names);
        put16(out, kDeflated);
        put16(out, kDosTime);
        put16(out, kDosDate);
        put32(out, crc);
        put32(out, quint32(packed.size()));
        put32(out, quint32(e.Data.size()));
        put16(out, quint16(e.Name.size()));
        put16(out, 0);
        out.append(e.Name);
        out.append(packed);

        put32(central, 0x02014b50);
        put16(central, kVersion);
        put16(central, kVersion);
        put16(central, kUtf8Names);
        put16(central, kDeflated);
        put16(central, kDosTime);
        put16(central, kDosDate);
        put32(central, crc);
        put32(central, quint32(packed.size()));
        put32(central, quint32(e.Data.size()));
        put16(central, quint16(e.Name.size()));
        put16(central, 0); // extra
        put16(central, 0); // comment
        put16(central, 0); // disk
        put16(central, 0); // internal attributes
        put32(central, 0); // external attributes
        put32(central, offset);
        central.append(e.Name);
    }
    const quint32 centralOffset = quint32(out.size());
    out.append(central);
    put32(out, 0x06054b50);
    put16(out, 0);
    put16(out, 0);
    put16(out, quint16(entries_.size()));
    put16(out, quint16(entries_.size()));
    put32(out, quint32(central.size()));
    put32(out, centralOffset);
    put16(out, 0);
    return out;
}

} // namespace orvo::reports

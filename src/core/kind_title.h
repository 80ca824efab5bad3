// The title of a document kind in words, as window captions and printed forms show it:
// the two bank documents and the two cash orders have their own names, every other kind
// of operation takes the caller's default.
#pragma once

#include <QString>

namespace orvo {

// O0201501 "Mokėjimo nurodymas", O0201502 "Pinigų gavimas", O0201503 "Kasos išlaidų
// orderis", O0201504 "Kasos pajamų orderis"; any other code gives `defaultTitle`.
QString KindTitle(const QString& code, const QString& defaultTitle);

} // namespace orvo

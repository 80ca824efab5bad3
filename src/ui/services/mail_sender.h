// MailSender hands a file to the user's mail program as the attachment of a new letter,
// which is what "Siųsti kaip PDF" does with a printed report. The program is
// `xdg-email` (Debian's xdg-utils), which opens whatever mail client the desktop has;
// ORVO_MAIL_COMMAND names another program taking the same arguments
// (--subject TEXT --attach FILE). The letter is left for the user to address and send.
#pragma once

#include "core/results.h"

#include <QString>

namespace orvo::ui {

class MailSender {
public:
    // Starts the mail program on a letter with `file` attached; a refusal says why in
    // Lithuanian (no such program) and names the file, which stays where it is.
    static ResultRecord Send(const QString& file, const QString& subject);
    // The program used: ORVO_MAIL_COMMAND or xdg-email.
    static QString Program();
};

} // namespace orvo::ui

// Inputs is the input box: a prompt, a title and a default text; the typed text comes
// back, or nothing when the user cancels.
#pragma once

#include <QString>
#include <memory>
#include <optional>

namespace orvo {

class Inputs {
public:
    virtual ~Inputs() = default;
    virtual std::optional<QString> InputBox(const QString& prompt, const QString& title,
                                            const QString& defaultText = QString()) = 0;
};

using InputsPtr = std::shared_ptr<Inputs>;

} // namespace orvo

#pragma once

#include <QString>

#include <functional>
#include <utility>

/// The caption that drives everything: each change of its text is an event. Setting the text that
/// it has already is no change, so a second identical line goes unnoticed.
class ModemResponse {
public:
    const QString &text() const { return text_; }
    /// The handler runs at once, inside this call, and never fails.
    void setText(const QString &text)
    {
        if (text_ == text) {
            return;
        }
        text_ = text;
        if (changed_) {
            changed_();
        }
    }
    void onChange(std::function<void()> handler) { changed_ = std::move(handler); }

private:
    QString text_;
    std::function<void()> changed_;
};

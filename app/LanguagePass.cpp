#include "app/LanguagePass.h"

#include "app/LanguagePositions.h"
#include "data/Connection.h"
#include "data/LanguageTable.h"
#include "data/Module1.h"
#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QMetaProperty>
#include <QObject>
#include <QVariant>

namespace {

// Dynamic properties of a control beside the caption's own: what was designed, and what a language
// has put in its place.
const QByteArray kDesigned = "designed ";
const QByteArray kGiven = "given ";

constexpr const char *kCaptions[] = {"title", "text", "toolTip", "accessibleName",
                                     "placeholderText"};

const char *propertyOf(const QObject &control, const CaptionPosition &caption)
{
    if (caption.place == CaptionPosition::ToolTip) {
        return "toolTip";
    }
    // A menu has a title; labels, buttons and entries have a text.
    return control.metaObject()->indexOfProperty("title") >= 0 ? "title" : "text";
}

/// The text of the catalogue of messages: a control's own, or that of what it stands in.
QString translated(const QObject *control, const QString &text)
{
    const QByteArray source = text.toUtf8();
    for (; control != nullptr && !text.isEmpty(); control = control->parent()) {
        const QString found =
            QCoreApplication::translate(control->metaObject()->className(), source);
        if (found != text) {
            return found;
        }
    }
    return text;
}

void give(QObject &control, const QByteArray &property, const QVariant &designed,
          const QString &text)
{
    control.setProperty(kDesigned + property, designed);
    control.setProperty(property, text);
    control.setProperty(kGiven + property, text);
}

/// Back to the design, as the catalogue of messages words it.
void giveDesigned(QObject &control, const char *property)
{
    const QMetaObject &kind = *control.metaObject();
    if (kind.property(kind.indexOfProperty(property)).isUser()) {
        return; // a field to type in, whose text is no caption
    }
    const QVariant present = control.property(property);
    const QVariant designed = control.property(kDesigned + property);
    const bool isReplaced = designed.isValid();
    // What the program has put there since is no caption of another language.
    if (isReplaced && present != control.property(kGiven + property)) {
        return;
    }
    const QString source = (isReplaced ? designed : present).toString();
    const QString text = translated(&control, source);
    if (isReplaced || text != source) {
        give(control, property, source, text);
    }
}

void giveRow(QObject &screen, const CaptionPosition &caption, const QString &text)
{
    if (auto *control = screen.findChild<QObject *>(caption.control.toString())) {
        const QByteArray property = propertyOf(*control, caption);
        const QVariant designed = control->property(kDesigned + property);
        give(*control, property, designed.isValid() ? designed : control->property(property), text);
    }
}

} // namespace

void ApplyLanguage(QObject &screen, Module1 &module)
{
    if (!module.DatabaseConnection) {
        throw RuntimeFailure(
            QCoreApplication::translate("LanguagePass", "Det er ingen forbindelse med databasen."));
    }
    const QObjectList controls = screen.findChildren<QObject *>();
    for (QObject *control : controls) {
        for (const char *property : kCaptions) {
            giveDesigned(*control, property);
        }
    }
    module.texts = {};
    readLanguage(*module.DatabaseConnection, module.CountryCode,
                 [&](quint8 position, const QString &text) {
                     for (const CaptionPosition &caption : captionPositions()) {
                         if (caption.position == position) {
                             giveRow(screen, caption, text);
                         }
                     }
                     applyWord(module.texts, position, text);
                 });
}

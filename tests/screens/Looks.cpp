#include "screens/Looks.h"

#include <QtWidgets>

#include <cmath>

namespace {

constexpr double kLeastContrast = 4.5;
constexpr int kLayouts = 8; ///< one in another, which each tell the next

/// Of the Web Content Accessibility Guidelines 2.1, relative luminance.
double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// Of the text against what is drawn behind it: of a button all shades, from top to bottom.
double leastContrast(QWidget &control, const QColor &text)
{
    const bool isButton = qobject_cast<QAbstractButton *>(&control) != nullptr;
    const int frame = isButton ? 3 : qobject_cast<QLabel *>(&control) != nullptr ? 0 : 4;
    const QImage drawn = control.grab().toImage();
    QHash<QRgb, int> counts;
    double least = 21;
    for (int y = frame; y < drawn.height() - frame; ++y) {
        least = isButton ? std::min(least, contrast(drawn.pixel(frame, y), text)) : least;
        for (int x = frame; x < drawn.width() - frame; ++x) {
            ++counts[drawn.pixel(x, y)];
        }
    }
    const auto behind = std::max_element(counts.cbegin(), counts.cend());
    return isButton || counts.isEmpty() ? least : contrast(behind.key(), text);
}

QPalette::ColorRole inkOf(const QWidget &control)
{
    return qobject_cast<const QAbstractButton *>(&control) != nullptr ? QPalette::ButtonText
           : qobject_cast<const QLabel *>(&control) != nullptr        ? QPalette::WindowText
                                                                      : QPalette::Text;
}

QString textOf(const QWidget &control)
{
    return control.property("text").toString();
}

const QLabel *labelOf(const QWidget &screen, const QWidget &control)
{
    for (const QLabel *label : screen.findChildren<QLabel *>()) {
        if (label->buddy() == &control) {
            return label;
        }
    }
    return nullptr;
}

QString accessibleName(const QWidget &screen, const QWidget &control)
{
    const bool isButton = qobject_cast<const QAbstractButton *>(&control) != nullptr;
    const QLabel *label = labelOf(screen, control);
    const QString name = !control.accessibleName().isEmpty() ? control.accessibleName()
                         : isButton                          ? textOf(control)
                         : label != nullptr                  ? label->text()
                                                             : QString();
    return QString(name).remove(u'&');
}

/// The letters of a menu's entries, or of a screen's menus, fields and buttons.
QStringList doubleLetters(const QStringList &texts)
{
    QMap<QString, QString> taken;
    QStringList faults;
    for (const QString &text : texts) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (!letter.isEmpty() && taken.contains(letter)) {
            faults += letter + QStringLiteral(": ") + taken[letter] + u'/' + text;
        }
        taken[letter] = text;
    }
    return faults;
}

} // namespace

QStringList faultsOf(const QWidget &screen)
{
    for (int depth = 0; depth < kLayouts; ++depth) {
        QApplication::processEvents(); // a caption that has just changed
    }
    QStringList faults;
    QStringList withLetters;
    QMap<QString, QString> names;
    if (const auto *window = qobject_cast<const QMainWindow *>(&screen)) {
        for (const QAction *menu : window->menuBar()->actions()) {
            withLetters += menu->isVisible() ? QStringList(menu->text()) : QStringList();
        }
    }
    for (const QMenu *menu : screen.findChildren<QMenu *>()) {
        QStringList entries;
        for (const QAction *entry : menu->actions()) {
            entries += entry->text();
        }
        faults += doubleLetters(entries);
    }
    for (QWidget *control : screen.findChildren<QWidget *>()) {
        const bool isPart = control->objectName().startsWith(QStringLiteral("qt_"));
        if (!control->isVisible() || isPart || control->visibleRegion().isEmpty()) {
            continue;
        }
        const auto *label = qobject_cast<const QLabel *>(control);
        const auto *button = qobject_cast<const QAbstractButton *>(control);
        const QString text = textOf(*control);
        const bool isRead = label != nullptr || button != nullptr ||
                            qobject_cast<const QLineEdit *>(control) != nullptr;
        if (isRead && !text.isEmpty() && control->isEnabled() &&
            leastContrast(*control, control->palette().color(inkOf(*control))) < kLeastContrast) {
            faults += QStringLiteral("pale: ") + control->objectName();
        }
        if ((label != nullptr && label->buddy() != nullptr) || button != nullptr) {
            withLetters += text;
            if (control->width() < control->minimumSizeHint().width()) {
                faults += QStringLiteral("cut: ") + control->objectName();
            }
        }
        const bool stops = control->focusPolicy() & Qt::TabFocus;
        if (stops && control->property("readOnly").toBool()) {
            faults += QStringLiteral("stops: ") + control->objectName();
        }
        if (!stops || control->focusProxy() != nullptr ||
            qobject_cast<QAbstractScrollArea *>(control->parentWidget()) != nullptr ||
            qobject_cast<QComboBox *>(control->parentWidget()) != nullptr) {
            continue;
        }
        const QString name = accessibleName(screen, *control);
        if (name.isEmpty() || names.contains(name)) {
            faults += QStringLiteral("named \"") + name + QStringLiteral("\": ") +
                      control->objectName() + u'/' + names.value(name);
        }
        names[name] = control->objectName();
    }
    return faults + doubleLetters(withLetters);
}

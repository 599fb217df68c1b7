#include "QuillaryUI/Settings/NumberingForm.h"

#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Numbering/NumberPatterns.h"
#include "QuillaryCore/Numbering/Numbering.h"
#include "QuillaryUI/Look/CoreText.h"
#include "QuillaryUI/Look/FieldForm.h"
#include "QuillaryUI/Look/Theme.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>

#include <string>
#include <utility>

namespace Quillary {

namespace {

struct Series
{
    NumberedKind kind;
    const char* pattern; ///< its field
    const char* next;
};

constexpr Series allSeries[] = {{NumberedKind::invoice, "invoice_number_format", "next_invoice"},
                                {NumberedKind::quote, "quote_number_format", "next_quote"},
                                {NumberedKind::creditNote, "credit_note_number_format", "next_credit_note"},
                                {NumberedKind::client, "client_number_format", "next_client"}};

QString patternField(NumberedKind kind)
{
    for (const Series& series : allSeries) {
        if (series.kind == kind) {
            return QString::fromLatin1(series.pattern);
        }
    }
    return {};
}

} // namespace

NumberingForm::NumberingForm(LibraryAccess& library, FieldForm& form)
    : QObject(&form)
    , m_library(library)
    , m_form(form)
{
    for (const Series& series : allSeries) {
        auto* line = form.findChild<QLineEdit*>(QStringLiteral("field_") + QString::fromLatin1(series.pattern));
        offer(series.kind, *line);
        connect(line, &QLineEdit::textEdited, this, [this, kind = series.kind](const QString& pattern) {
            showExample(kind, pattern);
        });
    }
}

QString NumberingForm::seriesField(NumberedKind kind)
{
    for (const Series& series : allSeries) {
        if (series.kind == kind) {
            return QString::fromLatin1(series.next);
        }
    }
    return {};
}

std::optional<NumberedKind> NumberingForm::seriesKind(const QString& field)
{
    for (const Series& series : allSeries) {
        if (field == QLatin1String(series.next)) {
            return series.kind;
        }
    }
    return std::nullopt;
}

/// A menu in the field: a pattern is easier chosen than written.
void NumberingForm::offer(NumberedKind kind, QLineEdit& line)
{
    auto* menu = new QMenu(&line);
    menu->setObjectName(QStringLiteral("presets_") + patternField(kind));
    for (const NumberPreset& preset : presets(kind)) {
        const QString pattern = text(preset.pattern);
        const QString title = CoreText::word(preset.title);
        menu->addAction(QStringLiteral("%1\t%2").arg(title, pattern), this, [this, &line, pattern] {
            line.setText(pattern);
            m_form.flush();
        });
    }
    QAction* open = line.addAction(Theme::icon(QStringLiteral("more")), QLineEdit::TrailingPosition);
    open->setToolTip(tr("Choose a pattern"));
    connect(
        open, &QAction::triggered, &line, [menu, &line] { menu->popup(line.mapToGlobal(line.rect().bottomLeft())); });
}

/// While it is typed. What is wrong with it is told under the field once the keys rest.
void NumberingForm::showExample(NumberedKind kind, const QString& pattern)
{
    if (!m_library.isOpen()) {
        return;
    }
    Business changed = m_library.business();
    QString note;
    if (!setFormat(kind, utf8(pattern), changed)) {
        try {
            const std::string number =
                Numbering::example(m_library.context(), kind, m_library.now(), changed, m_library.formats().calendar());
            note = tr("Next number: %1").arg(text(number));
        } catch (const UserError& error) {
            note = CoreText::sentence(error.message());
        }
    }
    m_form.setNote(patternField(kind), note);
}

void NumberingForm::refresh()
{
    for (const Series& series : allSeries) {
        const QString field = QString::fromLatin1(series.next);
        // A series of each client's own has no one place to continue at.
        const bool isOfClient = format(series.kind, m_library.business()).find("{client}") != std::string::npos;
        try {
            const std::int64_t next = isOfClient ? 0
                                                 : Numbering::nextCounter(m_library.context(),
                                                                          series.kind,
                                                                          m_library.now(),
                                                                          nullptr,
                                                                          m_library.business(),
                                                                          m_library.formats().calendar());
            m_form.setValue(field, QString::number(next));
            m_form.setShown(field, !isOfClient);
        } catch (const UserError&) {
            m_form.setShown(field, false); // no usable pattern; its own field says so
        }
    }
}

void NumberingForm::continueWith(NumberedKind kind, const QString& typed)
{
    constexpr qlonglong largest = 999'999'999; // the digits of the widest counter
    bool isNumber = false;
    const qlonglong value = typed.trimmed().toLongLong(&isNumber);
    if (!isNumber || value < 1 || value > largest) {
        throw UserError(utf8(tr("Write a whole number from 1 to %1.").arg(largest)));
    }
    Numbering::setNextCounter(m_library.context(),
                              value,
                              kind,
                              m_library.now(),
                              nullptr,
                              m_library.business(),
                              m_library.formats().calendar());
}

} // namespace Quillary

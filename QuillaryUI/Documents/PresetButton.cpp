#include "QuillaryUI/Documents/PresetButton.h"

#include "QuillaryCore/Assistant/Operations/RecordFields.h"
#include "QuillaryCore/Foundation/JSON.h"
#include "QuillaryCore/Model/TextPreset.h"
#include "QuillaryCore/Store/Context.h"

#include <QMenu>
#include <QPlainTextEdit>

namespace Quillary {

namespace {

constexpr qsizetype longestName = 40;

} // namespace

PresetButton::PresetButton(LibraryAccess& library, Kind kind, QPlainTextEdit& field)
    : m_library(library)
    , m_kind(kind)
    , m_field(field)
    , m_menu(new QMenu(this))
{
    setText(tr("Texts"));
    setToolTip(tr("Your saved texts"));
    setAccessibleName(kind == Kind::intro ? tr("Saved introductions") : tr("Saved closing texts"));
    setObjectName(kind == Kind::intro ? QStringLiteral("introPresets") : QStringLiteral("footerPresets"));
    setMenu(m_menu);
    connect(m_menu, &QMenu::aboutToShow, this, &PresetButton::fillMenu);
}

void PresetButton::fillMenu()
{
    m_menu->clear();
    if (!m_library.isOpen()) {
        return;
    }
    for (const TextPreset* preset :
         m_library.context().fetch<TextPreset>("kindRaw = ? ORDER BY sortIndex, id", std::int64_t(m_kind))) {
        const QString words = Quillary::text(preset->text);
        m_menu->addAction(
            Quillary::text(preset->title).replace(QChar(u'&'), QStringLiteral("&&")), &m_field, [this, words] {
                m_field.setPlainText(words);
                m_field.setFocus(Qt::OtherFocusReason);
            });
    }
    if (!m_menu->isEmpty()) {
        m_menu->addSeparator();
    }
    QAction* keeping = m_menu->addAction(tr("Keep This Text"), this, &PresetButton::keep);
    keeping->setEnabled(!m_field.toPlainText().trimmed().isEmpty());
}

/// Under its first words; the catalog gives it another name.
void PresetButton::keep()
{
    const QString words = m_field.toPlainText().trimmed();
    const QString name = words.section(QChar(u'\n'), 0, 0).left(longestName).trimmed();
    const auto refusal = m_library.perform(tr("Keep Text"), [&] {
        const JSON given = JSON::object(
            {{"title", utf8(name)}, {"kind", m_kind == Kind::intro ? "intro" : "outro"}, {"text", utf8(words)}});
        addRecord<TextPreset>(m_library.environment(), Arguments(given));
    });
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
}

} // namespace Quillary

#include "QuillaryUI/Paper/DesignPicker.h"

#include "QuillaryUI/Look/CoreText.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QToolButton>

#include <chrono>
#include <utility>
#include <variant>

namespace Quillary {

namespace {

constexpr std::array designs = {TemplateDesign::classic,
                                TemplateDesign::modern,
                                TemplateDesign::minimal,
                                TemplateDesign::bold,
                                TemplateDesign::compact};
constexpr std::array names = {"Classic", "Modern", "Minimal", "Bold", "Compact"};
constexpr QSize paper(58, 82);
constexpr int gap = 4;

/// The whole page itself, which somebody may be typing on, goes before.
constexpr std::chrono::milliseconds pause{600};

QPixmap sheet(double ratio)
{
    QPixmap pixmap(paper * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    return pixmap;
}

} // namespace

DesignPicker::DesignPicker(PagePress& press, Source source, QWidget* parent)
    : QWidget(parent)
    , m_press(press)
    , m_source(std::move(source))
{
    static_assert(designs.size() == count && names.size() == count);
    setObjectName(QStringLiteral("designPicker"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    auto* group = new QButtonGroup(this); // one is always chosen, and the arrow keys choose
    for (std::size_t place = 0; place < count; ++place) {
        auto* button = new QToolButton(this);
        button->setObjectName(QStringLiteral("design%1").arg(QLatin1String(names[place])));
        button->setText(CoreText::word(names[place]));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setIconSize(paper);
        button->setIcon(sheet(devicePixelRatioF()));
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(button, &QToolButton::clicked, this, &DesignPicker::chosen);
        group->addButton(button);
        row->addWidget(button);
        m_buttons[place] = button;
    }
    m_buttons.front()->setChecked(true);
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        m_next = 0;
        printNext();
    });
}

TemplateDesign DesignPicker::design() const
{
    for (std::size_t place = 0; place < count; ++place) {
        if (m_buttons[place]->isChecked()) {
            return designs[place];
        }
    }
    return designs.front();
}

void DesignPicker::refresh()
{
    m_pause.start();
}

void DesignPicker::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

/// One after the other, beside the page that is being typed on.
void DesignPicker::printNext()
{
    if (m_isPrinting || m_next == count || !isVisible()) {
        return;
    }
    const std::size_t place = m_next++;
    std::optional<PageJob> job = m_source(designs[place]);
    if (!job) {
        return;
    }
    m_isPrinting = true;
    const LonePage first{.index = 0, .pageCount = 1};
    m_press.pressPage(*std::move(job), first, [self = QPointer(this), place](const PrintResult& result) {
        if (self) {
            self->show(place, result);
        }
    });
}

/// A page that can't be printed says so where it stands large.
void DesignPicker::show(std::size_t place, const PrintResult& result)
{
    m_isPrinting = false;
    const auto* pdf = std::get_if<PrintedPDF>(&result);
    try {
        if (pdf != nullptr) {
            const double ratio = devicePixelRatioF();
            const PagePicture picture = m_press.picture(pdf->bytes, 0, 2 * qRound(paper.width() * ratio));
            const QImage page(picture.pixels.data(), picture.width, picture.height, QImage::Format_RGBX8888);
            QPixmap shown = sheet(ratio);
            QPainter painter(&shown);
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(QRect(QPoint(), paper), page); // halved: fine lines stay visible
            painter.end();
            m_buttons[place]->setIcon(shown);
        }
    } catch (const PrintError&) {
        m_buttons[place]->setIcon(sheet(devicePixelRatioF()));
    }
    printNext();
}

} // namespace Quillary

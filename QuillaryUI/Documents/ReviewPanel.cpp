#include "QuillaryUI/Documents/ReviewPanel.h"

#include "QuillaryCore/Assistant/Description/Lookup.h"
#include "QuillaryCore/Assistant/Operations/AssistantActions.h"
#include "QuillaryCore/Assistant/Review/DocumentReview.h"
#include "QuillaryCore/Model/Client.h"
#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Store/Context.h"
#include "QuillaryUI/Documents/WindowWords.h"
#include "QuillaryUI/Look/CoreText.h"

namespace Quillary {

namespace {

constexpr char newClient[] = "create_client";

QString link(const QString& target, const QString& words)
{
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(target.toHtmlEscaped(), words.toHtmlEscaped());
}

/// An entry leads on, but isn't one of the answers.
QString entryLink(const std::string& field, const std::string& words)
{
    return QStringLiteral("<a href=\"%1\" style=\"text-decoration: none\">%2</a>")
        .arg(text(field).toHtmlEscaped(), CoreText::sentence(words).toHtmlEscaped());
}

/// A client's name is nobody's word but theirs, also when it is that of a way to pay.
QString answerWords(const ReviewQuestion& question, const ReviewOption& option)
{
    if (question.field != "client") {
        return CoreText::sentence(option.label);
    }
    const bool isNew = option.value.string() != nullptr && *option.value.string() == newClient;
    return isNew ? ReviewPanel::tr("Someone new…") : text(option.label);
}

bool isAboutClient(const std::string& field)
{
    return field.starts_with("update_client");
}

} // namespace

ReviewPanel::ReviewPanel(DraftDesk& desk, QWidget* parent)
    : QLabel(parent)
    , m_desk(desk)
{
    setObjectName(QStringLiteral("review"));
    setWordWrap(true);
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(this, &QLabel::linkActivated, this, &ReviewPanel::follow);
}

void ReviewPanel::reload()
{
    const AssistantEnvironment& environment = m_desk.library().environment();
    const DocumentReview review = DocumentReview::review(environment.context,
                                                         *m_desk.document(),
                                                         environment.ownBusiness(),
                                                         m_desk.library().today(),
                                                         environment.locale);
    m_answers.clear();
    QString list;
    for (const ReviewQuestion& question : review.questions) {
        QString entry = entryLink(question.field, question.text);
        for (const ReviewOption& option : question.options) {
            entry += QStringLiteral(" &nbsp;·&nbsp; ") +
                     link(QStringLiteral("answer:%1").arg(m_answers.size()), answerWords(question, option));
            m_answers.push_back({question.field, Quillary::text(option.value.dump())});
        }
        list += QStringLiteral("<li>%1</li>").arg(entry);
    }
    for (const ReviewProblem& problem : review.problems) {
        const QString place = problem.field == "update_business_profile" ? tr(" (in the settings)")
                              : isAboutClient(problem.field)             ? tr(" (with the client)")
                                                                         : QString();
        list += QStringLiteral("<li>%1%2</li>").arg(entryLink(problem.field, problem.problem), place);
    }
    setText(list.isEmpty() ? tr("Nothing is missing.") : tr("<b>What's missing</b><ul>%1</ul>").arg(list));
}

void ReviewPanel::follow(const QString& target)
{
    const Document* draft = m_desk.document();
    if (draft == nullptr) {
        return;
    }
    if (const qsizetype colon = target.indexOf(QChar(u':')); target.startsWith(QLatin1String("answer:"))) {
        const std::size_t index = target.mid(colon + 1).toULongLong();
        if (index < m_answers.size()) {
            give(Answer(m_answers[index])); // the list is made anew on the way
        }
    } else if (target == QLatin1String("update_business_profile")) {
        Q_EMIT wantedSettings();
    } else if (isAboutClient(utf8(target))) {
        Q_EMIT wantedClient(draft->client.key());
    } else {
        Q_EMIT wantedField(WindowWords::field(target));
    }
}

void ReviewPanel::give(const Answer& answer)
{
    const JSON value = JSON::parse(utf8(answer.value)).value_or(JSON());
    if (value.string() != nullptr && *value.string() == newClient) {
        Q_EMIT wantedNewClient();
        return;
    }
    std::optional<QString> refusal;
    if (isAboutClient(answer.field)) {
        const Client* client = m_desk.library().context().find(m_desk.document()->client);
        const std::string field = answer.field.substr(answer.field.find(' ') + 1);
        const JSON arguments = JSON::object({{"client", Lookup::idText(client->uuid)}, {field, value}});
        AssistantActions(m_desk.library().environment())
            .call("update_client", arguments, [&](const ToolResult& result) {
                if (result.isError) {
                    refusal = WindowWords::refusal(CoreText::sentence(result.text));
                }
            });
    } else {
        refusal = m_desk.change(tr("Answer"), answer.field, value);
    }
    if (refusal) {
        Q_EMIT failed(*refusal);
    }
}

} // namespace Quillary

#include "QuillaryUI/Main/ApprovalDialog.h"

#include "QuillaryUI/Look/Formats.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <utility>

namespace Quillary {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ApprovalDialog)
};

/// The dialog is Qt's to delete; whoever takes the question back hides it.
class OpenQuestion final : public ApprovalAsker::Question
{
public:
    explicit OpenQuestion(QMessageBox* dialog)
        : m_dialog(dialog)
    {
    }
    OpenQuestion(const OpenQuestion&) = delete;
    OpenQuestion& operator=(const OpenQuestion&) = delete;
    ~OpenQuestion() override
    {
        if (m_dialog) {
            m_dialog->disconnect();
            m_dialog->close();
            m_dialog->deleteLater();
        }
    }

private:
    QPointer<QMessageBox> m_dialog;
};

} // namespace

std::unique_ptr<ApprovalAsker::Question> ApprovalDialog::ask(const std::string& assistant, Answer answer)
{
    auto* dialog = new QMessageBox(QMessageBox::Question,
                                   Words::tr("New assistant"),
                                   Words::tr("Allow “%1” to work with Quillary?").arg(text(assistant)));
    dialog->setObjectName(QStringLiteral("approval"));
    dialog->setInformativeText(
        Words::tr("What it may do is set under Settings ▸ AI Assistants. It can never send anything by "
                  "itself, and you can take the permission back there at any time."));
    dialog->setTextFormat(Qt::PlainText); // the name is the assistant's own words
    dialog->setModal(false);
    QPushButton* allow = dialog->addButton(Words::tr("Allow"), QMessageBox::AcceptRole);
    QPushButton* deny = dialog->addButton(Words::tr("Don't Allow"), QMessageBox::RejectRole);
    dialog->setDefaultButton(deny);
    QObject::connect(dialog, &QMessageBox::finished, dialog, [dialog, allow, deny, answer = std::move(answer)] {
        const QAbstractButton* chosen = dialog->clickedButton();
        dialog->deleteLater();
        answer(chosen == allow  ? ApprovalAnswer::allow
               : chosen == deny ? ApprovalAnswer::deny
                                : ApprovalAnswer::undecided);
    });
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    return std::make_unique<OpenQuestion>(dialog);
}

} // namespace Quillary

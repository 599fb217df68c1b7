#pragma once

#include "QuillaryUI/Documents/DraftDesk.h"

#include <QLabel>

#include <vector>

namespace Quillary {

/// What a draft still lacks, above its form: each entry leads to the place where it is mended, and an answer that is
/// offered is a click.
class ReviewPanel : public QLabel
{
    Q_OBJECT

public:
    explicit ReviewPanel(DraftDesk& desk, QWidget* parent = nullptr);

    void reload();

Q_SIGNALS:
    /// A field of the editor.
    void wantedField(const QString& field);
    void wantedNewClient();
    /// What is missing stands with the client, or in the settings.
    void wantedClient(std::int64_t key);
    void wantedSettings();
    void failed(const QString& sentence);

private:
    struct Answer
    {
        std::string field;
        QString value; ///< as JSON text
    };

    void follow(const QString& link);
    void give(const Answer& answer);

    DraftDesk& m_desk;
    std::vector<Answer> m_answers;
};

} // namespace Quillary

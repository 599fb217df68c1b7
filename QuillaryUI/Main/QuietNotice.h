#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>

#include <cstdint>

class QLabel;

namespace Quillary {

/// A line at the bottom that says what somebody else did, and shows it when asked. It goes by itself.
class QuietNotice : public QWidget
{
    Q_OBJECT

public:
    explicit QuietNotice(QWidget* parent = nullptr);

    void tell(const QString& sentence, std::int64_t document);

Q_SIGNALS:
    void wantedDocument(std::int64_t key);

private:
    QLabel* m_sentence;
    QTimer m_time;
    std::int64_t m_document = 0;
};

} // namespace Quillary

#pragma once

#include "QuillaryCore/Assistant/Tools/AssistantHost.h"
#include "QuillaryUI/Paper/PagePress.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace Quillary {

class AppEnvironment;
class PagePrinter;
struct PrintJob;

/// Prints for commands and windows. The web engine is started by the first page, so that a command that
/// prints none never waits for it.
class PrintingHost final : public AssistantHost, public PagePress
{
public:
    explicit PrintingHost(const AppEnvironment& environment);
    ~PrintingHost() override;

    void printPage(PageJob job, std::function<void(PageOutcome)> reply) override;
    void prepareEmail(MailDraft mail, std::string name, std::function<void(EmailOutcome)> reply) override;
    [[nodiscard]] Bytes pageImage(const Bytes& pdf, int pageIndex, int pixelWidth) override;
    [[nodiscard]] std::filesystem::path downloadsFolder() const override;
    [[nodiscard]] std::filesystem::path homeFolder() const override;

    void press(PageJob job, PrintReply reply) override;
    void pressPage(PageJob job, LonePage page, PrintReply reply) override;
    [[nodiscard]] PagePicture picture(const Bytes& pdf, int pageIndex, int pixelWidth) override;
    void warmUp() override;
    void warmUpForPages() override;

    enum class Windows { none, shown };
    /// Starts Qt's event loop's application for programs that stay, before anything is printed.
    void startApplication(Windows windows = Windows::none);

    /// Who is told when something fails in the event loop of a program with windows, such as a disk that can't be read:
    /// the program goes on.
    void onFailure(std::function<void(const std::string& sentence)> tell) { m_tellFailure = std::move(tell); }

    /// Prints a page and waits for it. Throws: `UserError`.
    [[nodiscard]] Bytes printAndWait(PageJob job);

    /// The logo to keep of a picture that a person chose: PNG. Throws: `UserError`.
    [[nodiscard]] Bytes logo(const Bytes& file);

    /// Runs the engine's events until `isDone`; returns at once when it already is.
    void runUntil(const std::function<bool()>& isDone);

private:
    struct Application;
    class WindowApplication;
    [[nodiscard]] std::unique_ptr<PagePrinter> load();
    PagePrinter& printer();
    PagePrinter& lonePagePrinter();
    void print(PagePrinter& (PrintingHost::*wanted)(), PrintJob job, PrintReply reply);
    [[nodiscard]] PrintJob printJob(PageJob job) const;

    const AppEnvironment& m_environment;
    std::function<void(const std::string& sentence)> m_tellFailure;
    std::unique_ptr<Application> m_application;
    std::unique_ptr<PagePrinter> m_printer;         ///< goes before the application, whose events it lives on
    std::unique_ptr<PagePrinter> m_lonePagePrinter; ///< likewise
};

} // namespace Quillary

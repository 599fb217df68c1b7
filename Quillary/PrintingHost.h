#pragma once

#include "QuillaryCore/Assistant/AssistantHost.h"

#include <functional>
#include <memory>

namespace Quillary {

class AppEnvironment;
struct PrintJob;

/// Prints for commands that run without windows. The web engine is started by the first page, so that a command that
/// prints none never waits for it.
class PrintingHost final : public AssistantHost
{
public:
    explicit PrintingHost(const AppEnvironment& environment);
    ~PrintingHost() override;

    void printPage(PageJob job, std::function<void(PageOutcome)> reply) override;
    [[nodiscard]] Bytes pageImage(const Bytes& pdf, int pageIndex, int pixelWidth) override;
    [[nodiscard]] std::filesystem::path downloadsFolder() const override;
    [[nodiscard]] std::filesystem::path homeFolder() const override;

    /// Prints a page and waits for it. Throws: `UserError`.
    [[nodiscard]] Bytes printAndWait(PageJob job);

    /// Runs the engine's events until `isDone`; returns at once when it already is.
    void runUntil(const std::function<bool()>& isDone);

private:
    struct Engine;
    Engine& engine();
    [[nodiscard]] PrintJob printJob(PageJob job) const;

    const AppEnvironment& m_environment;
    std::unique_ptr<Engine> m_engine;
};

} // namespace Quillary

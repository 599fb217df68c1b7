#include "Quillary/Commands/SamplesCommand.h"

#include "Quillary/AppEnvironment.h"
#include "Quillary/PrintingHost.h"
#include "QuillaryCore/Assistant/Operations/PageJobs.h"
#include "QuillaryCore/Foundation/Files.h"
#include "QuillaryCore/Foundation/Text.h"
#include "QuillaryCore/Foundation/UserError.h"
#include "QuillaryCore/Letters/ReminderLetter.h"
#include "QuillaryCore/Model/Business.h"
#include "QuillaryCore/Model/DocumentLanguage.h"
#include "QuillaryCore/Money/Currencies.h"
#include "QuillaryCore/Output/TemplateSettings.h"
#include "QuillaryCore/Samples/SampleLibrary.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <utility>

namespace Quillary {

namespace {

namespace fs = std::filesystem;

constexpr int pictureWidth = 1000;

constexpr std::array designs = {TemplateDesign::classic,
                                TemplateDesign::modern,
                                TemplateDesign::minimal,
                                TemplateDesign::bold,
                                TemplateDesign::compact};
constexpr std::array fonts = {TemplateFont::system, TemplateFont::serif, TemplateFont::rounded, TemplateFont::mono};
constexpr std::array papers = {PaperSize::a4, PaperSize::usLetter};
constexpr std::array positions = {LogoPosition::left, LogoPosition::center, LogoPosition::right};
constexpr std::array sizes = {LogoSize::small, LogoSize::medium, LogoSize::large};

/// Writes pages of sample documents and counts them.
class SampleWriter
{
public:
    SampleWriter(fs::path folder, AppEnvironment& environment)
        : m_folder(std::move(folder))
        , m_host(environment)
    {
    }

    /// Every document and letter of a language in every design.
    void writeDesigns(SampleLibrary& library, std::string_view languageCode)
    {
        for (const TemplateDesign design : designs) {
            Business business = library.business();
            business.templateID = storedText(design);
            for (const SampleLibrary::Sample& sample : library.samples()) {
                write(library, *sample.document, business, m_folder / languageCode / storedText(design) / sample.name);
            }
            for (const SampleLibrary::Letter& letter : library.letters()) {
                write(pageJob(ReminderLetter::printed(
                          library.context(), *letter.document, business, letter.reminder, library.calendar())),
                      m_folder / languageCode / storedText(design) / letter.name);
            }
        }
        fmt::print("{}: {} documents and {} letters in {} designs\n",
                   languageCode,
                   library.samples().size(),
                   library.letters().size(),
                   designs.size());
    }

    /// One document in every typeface, paper, place and size of the logo.
    void writeLooks(SampleLibrary& library)
    {
        const Document& document = *library.samples().front().document;
        const fs::path folder = m_folder / "looks";
        for (const TemplateFont font : fonts) {
            for (const PaperSize paper : papers) {
                Business business = library.business();
                business.templateFont = storedText(font);
                business.paperSize = storedText(paper);
                write(library, document, business, folder / fmt::format("{}-{}", storedText(font), storedText(paper)));
            }
        }
        for (const LogoPosition position : positions) {
            for (const LogoSize size : sizes) {
                Business business = library.business();
                business.logoPosition = storedText(position);
                business.logoSize = storedText(size);
                const std::string name = fmt::format("logo-{}-{}", storedText(position), storedText(size));
                write(library, document, business, folder / name);
            }
        }
    }

    [[nodiscard]] int pages() const { return m_pages; }

private:
    void write(SampleLibrary& library, const Document& document, const Business& business, const fs::path& file)
    {
        write(pageJob(library.context(), document, business, library.calendar()), file);
    }

    void write(PageJob job, const fs::path& file)
    {
        replaceFile(fs::path(file).concat(".html"), job.html);
        const Bytes pdf = m_host.printAndWait(std::move(job));
        replaceFile(fs::path(file).concat(".pdf"), pdf);
        replaceFile(fs::path(file).concat(".png"), m_host.pageImage(pdf, 0, pictureWidth));
        m_pages += 1;
    }

    fs::path m_folder;
    PrintingHost m_host;
    int m_pages = 0;
};

} // namespace

SamplesCommand::SamplesCommand(CLI::App& app)
{
    app.add_option("--render-samples", m_folder, "Writes sample documents of every kind, design and language.")
        ->type_name("FOLDER");
    app.add_option("--sample-currency", m_currency, "The currency of the samples; each language's own by default.")
        ->type_name("CODE");
    app.add_flag("--sample-english", m_englishOnly, "Renders the English samples only.");
}

int SamplesCommand::run(const CommandSetting& setting) const
{
    const std::string currency = upperCasedASCII(m_currency);
    if (!currency.empty() && !Currencies::isKnown(currency)) {
        throw UserError(fmt::format("--sample-currency must be an ISO currency code such as EUR, not {}.", m_currency));
    }
    SampleWriter writer(fs::absolute(m_folder), setting.environment);
    for (const DocumentLanguage language : allDocumentLanguages) {
        if (m_englishOnly && language != DocumentLanguage::english) {
            continue;
        }
        SampleLibrary library(language, currency);
        writer.writeDesigns(library, code(language));
        if (language == DocumentLanguage::english) {
            writer.writeLooks(library);
        }
    }
    fmt::print("{} pages as HTML, PDF and PNG in {}\n", writer.pages(), fs::absolute(m_folder).string());
    return 0;
}

} // namespace Quillary

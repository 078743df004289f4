#include "verification/verification.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/xml_files.hpp"
#include "platform/files.hpp"
#include "rebuilding/document_file.hpp"
#include "verification/folios.hpp"
#include "verification/seal_check.hpp"

#include <algorithm>
#include <set>

namespace tolvex {

namespace {

constexpr TextView from_backup = u"regrese sus registros de un respaldo de la base de datos";

// The first few of many, joined.
Text first_of(const std::vector<Text>& reasons)
{
    constexpr std::size_t shown = 3;
    const std::size_t count = std::min(reasons.size(), shown);
    Text text = join({reasons.begin(), reasons.begin() + static_cast<std::ptrdiff_t>(count)}, u"; ");
    if (reasons.size() > shown) text += u"; y " + decimal(reasons.size() - shown) + u" más";
    return text;
}

std::vector<Text> in_words(const std::vector<Difference>& differences)
{
    std::vector<Text> words;
    std::ranges::transform(differences, std::back_inserter(words),
                           [](const Difference& difference) { return tolvex::in_words(difference); });
    return words;
}

class Verification
{
public:
    Verification(Session& session, const VerifiedRange& range, const VerificationEvents& events)
        : session_(session), range_(range), events_(events), issuers_(session)
    {}

    VerificationSummary run();

private:
    void verify_issues();
    void verify_issue(StoredIssue& issue);
    std::optional<RebuiltDocument> verify_rows(StoredIssue& issue);
    bool tell_missing_rows(const StoredIssue& issue);
    void verify_seal(const StoredIssue& issue);
    void verify_file(const StoredIssue& issue, const RebuiltDocument& document);
    void verify_file_is_there(const StoredIssue& issue);
    void tell_leftovers();

    const Text& folder_of(const Issuer& issuer);
    void tell(const StoredIssue& issue, Fault fault, Text what, Text remedy, Text command = u"");
    void tell(const Finding& finding);

    Session& session_;
    const VerifiedRange& range_;
    const VerificationEvents& events_;
    Issuers issuers_;
    std::map<const Issuer*, Text> folders_;
    VerificationSummary summary_;
};

VerificationSummary Verification::run()
{
    verify_issues();
    verify_folios(session_, range_, [&](const Finding& finding) { tell(finding); });
    tell_leftovers();
    return summary_;
}

void Verification::verify_issues()
{
    StoredIssues issues(session_, issuers_, {range_.company, range_.from, range_.to});
    const std::size_t all = issues.count();
    for (auto page = issues.next(); !page.empty(); page = issues.next()) {
        for (StoredIssue& issue : page) verify_issue(issue);
        summary_.documents += page.size();
        if (events_.progress) events_.progress(std::min(summary_.documents, all), all);
    }
}

void Verification::verify_issue(StoredIssue& issue)
{
    issue.staged.gRutaDeArchivos = folder_of(*issue.issuer);
    const std::optional<RebuiltDocument> document = verify_rows(issue);
    verify_seal(issue);
    try {
        if (document && issue.issuer->certificate)
            verify_file(issue, *document);
        else
            verify_file_is_there(issue);
    } catch (const Error& error) {
        tell(issue, Fault::xml, u"su XML no se pudo revisar: " + error.description(),
             u"quite la causa y repita la revisión");
    }
}

// The document that the rows give, if they give the one that was issued.
std::optional<RebuiltDocument> Verification::verify_rows(StoredIssue& issue)
{
    if (tell_missing_rows(issue)) return {};
    try {
        RebuiltDocument document = rebuild(issue);
        if (document.other_issuer) ++summary_.with_former_issuer;
        std::vector<Text> reasons;
        if (!document.other_issuer) reasons = in_words(document.differences);
        const bool gives_string = reasons.empty();
        std::ranges::copy(issue.contradictions, std::back_inserter(reasons));
        if (reasons.empty()) return document;
        tell(issue, Fault::rows,
             (gives_string ? u"sus registros se contradicen: "
                           : u"sus registros ya no dan la cadena original: ") +
                 first_of(reasons),
             Text(from_backup));
    } catch (const Error& error) {
        tell(issue, Fault::rows, u"sus registros no dan un documento: " + error.description(),
             Text(from_backup));
    }
    return {};
}

bool Verification::tell_missing_rows(const StoredIssue& issue)
{
    std::vector<Text> missing = issue.faults;
    if (!issue.issuer->fault.empty()) missing.push_back(issue.issuer->fault);
    if (issue.receivers == 0) missing.push_back(u"falta su receptor en FE_ClienteFactura");
    if (issue.receivers > 1)
        missing.push_back(u"tiene " + decimal(issue.receivers) + u" receptores en FE_ClienteFactura");
    if (missing.empty()) return false;
    tell(issue, Fault::rows, first_of(missing), Text(from_backup));
    return true;
}

void Verification::verify_seal(const StoredIssue& issue)
{
    const Text fault = seal_fault(issue);
    if (fault.empty()) return;
    tell(issue, Fault::seal, fault,
         issue.issuer->certificate
             ? u"compárelo con su XML y con un respaldo; si así se emitió, cancélelo y emítalo de nuevo"
             : u"registre el certificado de nuevo, con «tolvex certificado» o la ventana de certificados");
}

Text command_for(const StoredIssue& issue)
{
    return u"tolvex xml " + trim(issue.key.folio) + u" --empresa " + decimal(issue.key.company) +
           u" --sucursal " + decimal(issue.key.branch) + (issue.kind == u"N" ? u" --nota-de-credito" : u"");
}

void Verification::verify_file(const StoredIssue& issue, const RebuiltDocument& document)
{
    const DocumentFile file = find_file(issue, document);
    if (file.state == DocumentFile::State::right) return;
    const Text name = comprobante_name(document.values);
    const Text path =
        files::native_path(file.path.empty() ? xml_path(issue.staged.gRutaDeArchivos, name) : file.path);
    Text what;
    if (file.state == DocumentFile::State::missing) what = u"falta su XML, " + path;
    if (file.state == DocumentFile::State::another)
        what = u"falta su XML: " + path + u" es de otro documento";
    if (file.state == DocumentFile::State::no_xml) what = path + u" no es XML: " + first_of(file.differences);
    if (file.state == DocumentFile::State::different)
        what = path + u" dice otra cosa: " + first_of(file.differences);
    tell(issue, Fault::xml, what,
         document.other_issuer ? u"póngale a la empresa los datos de entonces y escríbalo de nuevo"
                               : u"escríbalo de nuevo",
         command_for(issue));
}

// Without right rows and a certificate there is nothing to hold a file to.
void Verification::verify_file_is_there(const StoredIssue& issue)
{
    const DocumentValues values = stored_values(issue);
    if (has_file_of_its_own(issue, values)) return;
    tell(issue, Fault::xml, u"falta su XML, " + comprobante_name(values) + u".xml",
         u"arregle primero lo demás y escríbalo de nuevo", command_for(issue));
}

void Verification::tell_leftovers()
{
    std::set<Text> folders{range_.folder.empty() ? working_folder(u"") : range_.folder};
    for (const auto& [issuer, folder] : folders_) folders.insert(folder);
    for (const Text& folder : folders)
        for (const Text& name : files::names_ending(facturas_path(folder), u".xml.tmp")) {
            Finding finding;
            finding.fault = Fault::leftover;
            finding.what = files::native_path(facturas_path(folder)) + u": quedó " + name +
                           u" de una emisión interrumpida";
            finding.remedy = u"si nadie está emitiendo, bórrelo";
            tell(finding);
        }
}

const Text& Verification::folder_of(const Issuer& issuer)
{
    const auto [place, is_new] = folders_.try_emplace(&issuer);
    if (is_new) place->second = range_.folder.empty() ? working_folder(issuer.seal_folder) : range_.folder;
    return place->second;
}

void Verification::tell(const StoredIssue& issue, Fault fault, Text what, Text remedy, Text command)
{
    tell({fault, issue.serie, trim(issue.key.folio), issue.kind, issue.key.company, issue.key.branch,
          std::move(what), std::move(remedy), std::move(command)});
}

void Verification::tell(const Finding& finding)
{
    ++summary_.findings;
    if (events_.found) events_.found(finding);
}

} // namespace

VerificationSummary verify_documents(Session& session, const VerifiedRange& range,
                                     const VerificationEvents& events)
{
    return Verification(session, range, events).run();
}

} // namespace tolvex

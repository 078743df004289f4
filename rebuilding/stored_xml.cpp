#include "rebuilding/stored_xml.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/literal.hpp"
#include "platform/files.hpp"
#include "rebuilding/document_file.hpp"

namespace tolvex {

namespace {

Text listed(const std::vector<Text>& reasons)
{
    Text list;
    for (const Text& reason : reasons) list += u"\n  " + reason;
    return list;
}

Error not_written(const Text& because, const std::vector<Text>& reasons, TextView advice)
{
    return invalid_call(u"no se escribió el XML, pues " + because + u":" + listed(reasons) + u"\n" +
                        Text(advice));
}

constexpr TextView from_backup =
    u"Regrese los registros a como se emitieron, por ejemplo de un respaldo de la base de datos.";

// Throws Error for an issue that no document can be built from.
void require_all_rows(const StoredIssue& issue)
{
    std::vector<Text> missing = issue.faults;
    if (issue.receivers == 0) missing.push_back(u"falta su receptor en FE_ClienteFactura");
    if (!issue.issuer->fault.empty()) missing.push_back(issue.issuer->fault);
    if (!missing.empty()) throw not_written(u"lo guardado no está completo", missing, from_backup);
    if (issue.sello.empty())
        throw not_written(u"el documento no vale", {u"se guardó sin sello"},
                          u"Cancélelo y emítalo de nuevo.");
}

// Throws Error, which tells what differs, when the rows do not give the document that was issued.
RebuiltDocument rebuilt_as_issued(StoredIssue& issue)
{
    require_all_rows(issue);
    RebuiltDocument document = rebuild(issue);
    std::vector<Text> reasons;
    for (const Difference& difference : document.differences) reasons.push_back(in_words(difference));
    reasons.insert(reasons.end(), issue.contradictions.begin(), issue.contradictions.end());
    if (document.other_issuer)
        throw not_written(u"la empresa cambió sus datos después de emitirlo", reasons,
                          u"Póngale los de entonces, escriba el XML y regrésele los de hoy.");
    if (!reasons.empty())
        throw not_written(u"los registros guardados ya no dan la cadena original", reasons, from_backup);
    return document;
}

// The values that a host staged for it are stored nowhere.
bool has_addenda(Session& session, const DocumentValues& values)
{
    return shared_connection(session)
               .query(u"Select count(*) as n From fe_ctl_adendas(nolock) Where crfccte=" +
                      literal(without(values.RecRfc, u'|')) + u" And npadre=0")[u"n"]
               .number() > 0;
}

} // namespace

RewrittenXml write_stored_xml(Session& session, const DocumentKey& key, const Text& kind, const Text& folder)
{
    Issuers issuers(session);
    StoredIssue issue = read_stored_issue(session, issuers, key, kind);
    const RebuiltDocument document = rebuilt_as_issued(issue);
    issue.staged.gRutaDeArchivos = folder.empty() ? working_folder(issue.issuer->seal_folder) : folder;
    const DocumentFile there = find_file(issue, document);
    if (there.state == DocumentFile::State::right) return {.path = there.path, .was_there = true};
    const Text path = write_comprobante(issue.staged, document.values, decimal(issue.nID), false);
    if (path.empty()) throw Error(numbers::device_error, last_error());
    return {.path = path, .without_addenda = has_addenda(session, document.values)};
}

} // namespace tolvex

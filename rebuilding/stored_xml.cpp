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

Text advice(const RebuiltDocument& document)
{
    if (document.other_issuer)
        return u"\nLa empresa cambió sus datos después de emitirlo: póngale los de entonces, escriba el XML y"
               u" regrésele los de hoy.";
    return u"\nRegrese los renglones a como se emitieron, por ejemplo de un respaldo de la base de datos.";
}

Error not_as_issued(const RebuiltDocument& document)
{
    std::vector<Text> reasons;
    for (const Difference& difference : document.differences) reasons.push_back(in_words(difference));
    return invalid_call(u"no se escribió el XML, pues los renglones guardados ya no dan la cadena original:" +
                        listed(reasons) + advice(document));
}

RebuiltDocument rebuilt_whole(StoredIssue& issue)
{
    std::vector<Text> faults = issue.faults;
    if (issue.receivers == 0) faults.push_back(u"falta su receptor en FE_ClienteFactura");
    if (!issue.issuer->fault.empty()) faults.push_back(issue.issuer->fault);
    if (issue.sello.empty()) faults.push_back(u"se guardó sin sello");
    if (!faults.empty())
        throw invalid_call(u"no se escribió el XML, pues no está completo lo guardado:" + listed(faults));
    RebuiltDocument document = rebuild(issue);
    if (!document.differences.empty()) throw not_as_issued(document);
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
    const RebuiltDocument document = rebuilt_whole(issue);
    issue.staged.gRutaDeArchivos = folder.empty() ? working_folder(issue.issuer->seal_folder) : folder;
    const DocumentFile there = find_file(issue, document);
    if (there.state == DocumentFile::State::right) return {.path = there.path, .was_there = true};
    const Text path = write_comprobante(issue.staged, document.values, decimal(issue.nID), false);
    if (path.empty()) throw Error(numbers::device_error, last_error());
    return {.path = path, .without_addenda = has_addenda(session, document.values)};
}

} // namespace tolvex

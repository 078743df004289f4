#include "diagnosis/missing_files.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/xml_files.hpp"
#include "platform/files.hpp"
#include "rebuilding/issuers.hpp"

namespace tolvex {

namespace {

constexpr int documents_at_a_time = 5'000;

struct NamedFile
{
    std::int16_t company = 0;
    Text certificate, name;
};

class MissingFiles
{
public:
    MissingFiles(Session& session, const SoughtFiles& sought)
        : session_(session), sought_(sought), issuers_(session)
    {}

    void count()
    {
        for (auto page = next(); !page.empty(); page = next())
            for (const NamedFile& file : page) {
                ++documents;
                if (!files::exists_as_spelt(xml_path(folder_of(file), file.name))) ++missing;
            }
    }

    std::int64_t documents = 0, missing = 0;

private:
    std::vector<NamedFile> next()
    {
        std::vector<NamedFile> page;
        const Text sql = u"Select top " + decimal(documents_at_a_time) +
                         u" nID,nEmpresa,cSerie,nFolioFE,cSerie_Certificado From FE_VENTAS_RESUMEN(nolock)"
                         u" Where nID>" +
                         decimal(last_) + condition() + u" Order By nID";
        for (Recordset rows = shared_connection(session_).query(sql); !rows.eof(); rows.move_next()) {
            last_ = static_cast<std::int64_t>(rows[u"nID"].number());
            page.push_back({to_int16(leading_number(rows[u"nEmpresa"].text())),
                            rows[u"cSerie_Certificado"].text(),
                            trim(rows[u"cSerie"].text()) + trim(rows[u"nFolioFE"].text())});
        }
        return page;
    }

    Text condition() const
    {
        return (sought_.company == 0 ? Text() : u" And nEmpresa=" + decimal(sought_.company)) +
               (sought_.branch == 0 ? Text() : u" And nSucursal=" + decimal(sought_.branch));
    }

    Text folder_of(const NamedFile& file)
    {
        if (!sought_.folder.empty()) return sought_.folder;
        const auto [place, is_new] = folders_.try_emplace({file.company, file.certificate});
        if (is_new) place->second = working_folder(issuers_.find(file.company, file.certificate).seal_folder);
        return place->second;
    }

    Session& session_;
    const SoughtFiles& sought_;
    Issuers issuers_;
    std::map<std::pair<std::int16_t, Text>, Text> folders_;
    std::int64_t last_ = 0;
};

} // namespace

void look_at_missing_files(Session& session, const SoughtFiles& sought, const Tell& tell)
{
    MissingFiles files(session, sought);
    files.count();
    const Text all = decimal(files.documents);
    if (files.missing == 0)
        return tell({Verdict::well, u"XML", u"documentos: " + all + u"; no falta ninguno"});
    tell({Verdict::warning, u"XML",
          u"documentos: " + all + u"; sin archivo: " + decimal(files.missing) +
              u"; cuáles son y qué hacer lo dice «tolvex verifica»"});
}

} // namespace tolvex

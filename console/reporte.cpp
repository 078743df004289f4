#include "console/command.hpp"
#include "console/output.hpp"
#include "core/display_patterns.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/files.hpp"
#include "reports/monthly_report.hpp"

namespace tolvex::console {

namespace {

class Reporte : public Command
{
public:
    const char* name() const override { return "reporte"; }
    const char* purpose() const override
    {
        return "Escribe el reporte mensual de folios utilizados y dice su ruta";
    }
    const char* example() const override
    {
        return "tolvex reporte --empresa 1 --mes 3 --anio 2011 --carpeta . --bd tienda.db";
    }

    void declare(Options& options) override
    {
        options.required("--empresa", company_, "Número de la empresa");
        options.required("--mes", month_, "Mes, de 1 a 12");
        options.required("--anio", year_, "Año");
        options.required("--carpeta", folder_, "Carpeta del reporte");
    }

    int run(const Place& place) override
    {
        if (month_ < 1 || month_ > 12) return fail(u"el mes va de 1 a 12");
        const Text folder = files::absolute_path(to_text(folder_));
        if (!files::folder_exists(folder)) return fail(u"no existe la carpeta " + folder);
        connect(place, company_);
        const ReportedMonth month{company_, decimal(year_), format(static_cast<double>(month_), u"00")};
        const Text path = plCreaNombreArchivo(folder, company_rfc(session(), decimal(company_)).text(),
                                              month.month, month.year);
        if (!write_monthly_report(shared_connection(session()), month, path))
            return fail(u"no hay documentos de la empresa " + decimal(company_) + u" en " + month.month +
                        u"/" + month.year);
        print_line(files::native_path(path));
        return 0;
    }

private:
    std::int16_t company_ = 0, month_ = 0, year_ = 0;
    std::string folder_;
};

} // namespace

std::unique_ptr<Command> reporte_command() { return std::make_unique<Reporte>(); }

} // namespace tolvex::console

// rough_arithmetic FOLDER: a host that has cut its floating-point unit down, as graphics libraries do, lets
// the component issue FOLDER\\documentos.txt and looks whether it gets its own setting back.
#include "../client.hpp"

#include <cfloat>
#include <cstdio>

int wmain(int, wchar_t** arguments)
{
    const Apartment apartment;
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
#ifdef __i386__
    _controlfp(_PC_24 | _RC_UP, _MCW_PC | _MCW_RC);
#else
    _controlfp(_RC_UP, _MCW_RC);
#endif
    const unsigned own = _controlfp(0, 0);
    const std::wstring place = arguments[1], database_name = place + L"\\tolvex.db";
    Bstr folder(place.c_str()), file(L"documentos.txt"), none(L""), server(L"sqlite:"),
        database(database_name.c_str()), issued;
    docto->GeneraFacturaElectronicaDesdeArchivoPlano(&folder, &file, &none, &none, &server, &database,
                                                     &issued);
    const bool given_back = _controlfp(0, 0) == own;
    std::printf("%ls\n%s\n", issued.str().c_str(), given_back ? "como estaba" : "cambiada");
    return 0;
}

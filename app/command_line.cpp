#include "app/command_line.h"

#include <cerrno>
#include <exception>
#include <optional>
#include <ostream>

#include "app/command.h"
#include "app/console_view.h"
#include "app/data_commands.h"
#include "app/data_convert_command.h"
#include "app/data_directory.h"
#include "app/language.h"
#include "app/run_command.h"
#include "app/system_command.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"

namespace qor {

namespace {

struct OpcionesComunes {
    std::optional<std::string> settings;
    std::optional<std::string> data;
    std::optional<std::string> language;
    bool yes = false;
};

// The command line with its common options, which may stand in front of a command or behind it, and all commands.
struct LineaDeComandos : LineaDeOrdenes {
    LineaDeComandos() : LineaDeOrdenes("qorgen", "Qor Generator without a screen: ABAP load programs from specifications.") {
        const Orden raiz = Raiz();
        raiz.Dato("--settings", comunes.settings, "Directory of Tessaline.ini").Tipo("DIR");
        raiz.Dato("--data", comunes.data, "Directory of language.txt and the other data files").Tipo("DIR");
        raiz.Dato("--language", comunes.language, "Language of the messages and of the texts in reports").Tipo("NAME");
        raiz.Marca("--yes", comunes.yes, "Answer every question with yes");
        PonerVersion("qorgen " QOR_VERSION);
        const Ordenes ordenes{raiz, comando};
        AgregarComandosDeDocumento(ordenes);
        AgregarComandosDeBAPI(ordenes);
        AgregarComandosDeDatos(ordenes);
        AgregarComandosDeConversion(AgregarComandosDeEntrada(ordenes));
        AgregarComandosDeSAP(ordenes);
        AgregarComandoSystem(ordenes);
        AgregarComandoRun(ordenes);
    }

    OpcionesComunes comunes;
    Comando comando;
};

// Takes the settings. False, with a message, where the ones that were asked for can't be had; a directory without the file has
// none.
bool CargarAjustes(const OpcionesComunes& comunes, ArchivoINI& ini, VistaDeConsola& vista) {
    try {
        if (!comunes.settings) {
            ini.CargarINI(RutaDeAjustes(EntornoDelProceso()));
            return true;
        }
        const std::filesystem::path directorio = *comunes.settings;
        if (!Existe(directorio)) throw FalloDeArchivo(ENOENT, directorio);
        if (!std::filesystem::is_directory(directorio)) throw FalloDeArchivo(ENOTDIR, directorio);
        ini.CargarINI(directorio / nombreDeAjustes);
        return true;
    } catch (const FalloDeArchivo& fallo) {
        vista.Advertir(ConDetalle(MensajeLiteral("The settings can't be read."), fallo));
        return !comunes.settings;
    }
}

// Whatever stands in the output's buffer goes out. A failure is told, and the command has failed then.
int TerminarSalida(std::ostream& salida, std::ostream& errores, int estado) {
    errno = 0;
    if (salida.rdbuf()->pubsync() == 0 && salida.good()) return estado;
    VistaDeConsola vista(salida, errores, false);
    vista.Advertir(ConDetalle(MensajeLiteral("The output can't be written."), FalloDeArchivo(errno, "standard output")));
    return estado == estadoBien ? estadoRechazado : estado;
}

// Runs the command in the setting that the common options tell.
bool Ejecutar(const OpcionesComunes& comunes, const Comando& comando, VistaDeConsola& vista, std::ostream& salida,
              std::ostream& errores) {
    const auto datos = comunes.data ? std::filesystem::path(*comunes.data) : DirectorioDeDatos();
    ArchivoINI ini;
    if (!CargarAjustes(comunes, ini, vista)) return false;
    AjustesDelPrograma ajustes = LeerAjustes(ini, datos);
    if (comunes.language) ajustes.IdiomaActual = DeArgumento(*comunes.language);
    if (ajustes.IdiomaActual.empty()) ajustes.IdiomaActual = "English";

    TextosIdioma textos;
    Mensaje sinIdioma = MensajeLiteral("Cannot find language file.");
    switch (RecuperarIdioma(textos, datos / "language.txt", ajustes.IdiomaActual, &sinIdioma.detalle)) {
        case ResultadoIdioma::SinArchivo: vista.Advertir(sinIdioma); return false;
        case ResultadoIdioma::Fallo: vista.Advertir(MensajeLiteral("An error has occurred")); break;
        case ResultadoIdioma::Bien: break;
    }
    const auto directorioDeAjustes =
        comunes.settings ? std::filesystem::path(*comunes.settings) : RutaDeAjustes(EntornoDelProceso()).parent_path();
    return comando({textos, ajustes, datos, vista, salida, errores, directorioDeAjustes});
}

int Correr(const std::vector<std::string>& argumentos, std::ostream& salida, std::ostream& errores) {
    LineaDeComandos linea;
    try {
        if (const auto texto = linea.Leer(argumentos)) {
            salida << *texto;
            return estadoBien;
        }
    } catch (const MalUso& error) {
        errores << error.what() << '\n' << linea.Ayuda();
        return estadoMalUso;
    }
    VistaDeConsola vista(salida, errores, linea.comunes.yes);
    try {
        return Ejecutar(linea.comunes, linea.comando, vista, salida, errores) ? estadoBien : estadoRechazado;
    } catch (const MalUso& error) {
        errores << error.what() << '\n' << linea.Ayuda();
        return estadoMalUso;
    } catch (const FalloDeArchivo& fallo) {
        vista.Advertir(ConDetalle(MensajeLiteral("The command failed."), fallo));
        return estadoRechazado;
    } catch (const std::exception& fallo) {
        vista.Advertir(MensajeLiteral(std::string("The command failed: ") + fallo.what() + "."));
        return estadoRechazado;
    }
}

}  // namespace

int EjecutarQorgen(const std::vector<std::string>& argumentos, std::ostream& salida, std::ostream& errores) {
    return TerminarSalida(salida, errores, Correr(argumentos, salida, errores));
}

}  // namespace qor

#include "app/settings.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

#include "base/failure.h"
#include "base/new_file.h"
#include "base/paths.h"
#include "base/process.h"
#include "base/text.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view finDeLinea = "\r\n";

constexpr double maximoSegundosDeLlamada = 86400;

std::string ComoClave(std::string_view texto) { return Mayusculas(Recortar(texto)); }

bool TieneValor(std::string_view linea) { return Contiene(linea, "="); }

// The key of a line: up to the first "=", or all of it.
std::string ClaveDeLinea(std::string_view linea) { return ComoClave(AntesDe(linea, '=')); }

std::string LineaDeEntrada(std::string_view clave, std::string_view valor) {
    std::string linea(clave);
    linea.append("=").append(valor).append(finDeLinea);
    return linea;
}

template <typename Tabla>
auto BuscarEntrada(Tabla& tabla, std::string_view clave) {
    return std::find_if(tabla.begin(), tabla.end(), [&](const auto& entrada) { return entrada.clave == clave; });
}

// A setting that is on unless it says "No".
bool SiSalvoNo(const ArchivoINI& ini, std::string_view clave) { return ini.LeerClave(clave) != "No"; }

std::string SiONo(bool valor) { return valor ? "Yes" : "No"; }

std::string ConDefecto(const ArchivoINI& ini, std::string_view clave, std::string_view defecto) {
    std::string valor = ini.LeerClave(clave);
    return valor.empty() ? std::string(defecto) : valor;
}

fs::path LeerRuta(const ArchivoINI& ini, std::string_view clave, const fs::path& defecto) {
    const std::string valor = ini.LeerClave(clave);
    return valor.empty() ? defecto : RutaDelSistema(valor);
}

struct ClaveDeRuta {
    const char* clave;
    fs::path AjustesDelPrograma::*ruta;
};

constexpr std::array<ClaveDeRuta, 3> rutas = {{{"QOR Directory", &AjustesDelPrograma::DirectorioDocumentos},
                                               {"FieldsFile", &AjustesDelPrograma::ArchivoAnchos},
                                               {"BAPIFile", &AjustesDelPrograma::ArchivoBAPI}}};

void PonerRutasPorDefecto(AjustesDelPrograma& ajustes, const fs::path& directorioDelPrograma) {
    ajustes.directorioDelPrograma = directorioDelPrograma;
    ajustes.DirectorioDocumentos = directorioDelPrograma;
    ajustes.ArchivoAnchos = "C:\\Table_Fields";
    ajustes.ArchivoBAPI = directorioDelPrograma / "BAPI46C";
}

// The settings are windows-1252: a path that they can't hold leaves the key as it was.
void EscribirRuta(ArchivoINI& ini, std::string_view clave, const fs::path& ruta, const fs::path& defecto) {
    try {
        if (ruta != defecto) return ini.EscribirClave(clave, RutaDelModelo(ruta));
        if (!ini.LeerClave(clave).empty()) ini.EscribirClave(clave, "");
    } catch (const FalloDeEjecucion&) {
        return;
    }
}

struct ClaveDePrefijo {
    const char* clave;
    std::string Preferencias::*prefijo;
};

constexpr std::array<ClaveDePrefijo, 9> prefijos = {{{"GS prefix", &Preferencias::GSprefijo},
                                                     {"GN prefix", &Preferencias::GNprefijo},
                                                     {"GT prefix", &Preferencias::GTprefijo},
                                                     {"LS prefix", &Preferencias::LSprefijo},
                                                     {"LN prefix", &Preferencias::LNprefijo},
                                                     {"LT prefix", &Preferencias::LTprefijo},
                                                     {"GC prefix", &Preferencias::GCprefijo},
                                                     {"PS prefix", &Preferencias::PSprefijo},
                                                     {"PN prefix", &Preferencias::PNprefijo}}};

struct TextoDeOpcion {
    std::string_view texto;
    OpcionEncoding opcion;
};

// The first text of a choice is the one that is held and saved.
constexpr std::array<TextoDeOpcion, 5> encodings = {{{"NONE", OpcionEncoding::Ninguna},
                                                     {"ENCODING DEFAULT.", OpcionEncoding::Default},
                                                     {"ENCODING ...", OpcionEncoding::Default},
                                                     {"", OpcionEncoding::Default},
                                                     {"ENCODING NON-UNICODE.", OpcionEncoding::NonUnicode}}};

// The text of the settings file; an empty one where there is no file.
std::string LeerSiExiste(const fs::path& ruta) { return Existe(ruta) ? LeerArchivo(ruta) : std::string(); }

}  // namespace

Entorno EntornoDelProceso() { return VariableDeEntorno; }

fs::path RutaDeAjustes(const Entorno& entorno) {
    const std::string propio = entorno("tessaline_ini");
    const fs::path directorioPropio = Recortar(propio);
    std::error_code ignorado;
    if (!directorioPropio.empty() && fs::is_directory(directorioPropio, ignorado)) return directorioPropio / nombreDeAjustes;

    const std::string windir = entorno("windir");
    if (!windir.empty()) return fs::path(windir) / nombreDeAjustes;

    // A relative $XDG_CONFIG_HOME is invalid and counts as unset.
    fs::path configuracion = entorno("XDG_CONFIG_HOME");
    if (!configuracion.is_absolute()) configuracion = fs::path(entorno("HOME")) / ".config";
    return configuracion / "qor-generator" / nombreDeAjustes;
}

void ArchivoINI::CargarINI(const fs::path& ruta) {
    LeerTexto({});
    LeerTexto(LeerSiExiste(ruta));
}

void ArchivoINI::LeerTexto(std::string_view texto) {
    TablaINI_.clear();
    INIModificado_ = false;
    for (const auto linea : PartirEnLineas(texto)) {
        TablaINI_.push_back({ClaveDeLinea(linea), std::string(Recortar(DespuesDe(linea, '=')))});
    }
}

std::string ArchivoINI::LeerClave(std::string_view clave) const {
    const auto entrada = BuscarEntrada(TablaINI_, ComoClave(clave));
    return entrada == TablaINI_.end() ? std::string() : entrada->valor;
}

void ArchivoINI::EscribirClave(std::string_view clave, std::string_view valor) {
    std::string nuevo(valor);
    std::replace_if(
        nuevo.begin(), nuevo.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    nuevo = std::string(Recortar(nuevo));

    auto entrada = BuscarEntrada(TablaINI_, ComoClave(clave));
    if (entrada == TablaINI_.end()) {
        TablaINI_.push_back({ComoClave(clave), nuevo, true});
    } else if (entrada->valor != nuevo) {
        entrada->valor = nuevo;
        entrada->cambiada = true;
    } else {
        return;
    }
    INIModificado_ = true;
}

std::string ArchivoINI::TextoCambiado(std::string_view texto) const {
    std::string resultado;
    std::vector<Entrada> pendientes = TablaINI_;
    for (const auto linea : PartirEnLineas(texto)) {
        if (EstaEnBlanco(linea)) continue;
        const auto entrada = BuscarEntrada(pendientes, ClaveDeLinea(linea));
        if (TieneValor(linea) && entrada != pendientes.end() && entrada->cambiada) {
            resultado += LineaDeEntrada(entrada->clave, entrada->valor);
            entrada->cambiada = false;
        } else {
            resultado.append(linea).append(finDeLinea);
        }
    }
    for (const auto& entrada : pendientes) {
        if (entrada.cambiada) resultado += LineaDeEntrada(entrada.clave, entrada.valor);
    }
    return resultado;
}

void ArchivoINI::GuardarINI(const fs::path& ruta) {
    if (!INIModificado_) return;
    if (ruta.has_parent_path()) fs::create_directories(ruta.parent_path());
    GuardarArchivo(ruta, TextoCambiado(LeerSiExiste(ruta)), ".tmp");
    for (auto& entrada : TablaINI_) entrada.cambiada = false;
    INIModificado_ = false;
}

OpcionEncoding EncodingDeAdiciones(std::string_view AdicionesDataset) {
    for (const auto& encoding : encodings) {
        if (encoding.texto == AdicionesDataset) return encoding.opcion;
    }
    return OpcionEncoding::Additional;
}

std::string AdicionesDeEncoding(OpcionEncoding opcion, std::string_view EncodingAdditional) {
    for (const auto& encoding : encodings) {
        if (encoding.opcion == opcion) return std::string(encoding.texto);
    }
    return std::string(EncodingAdditional);
}

AjustesDelPrograma LeerAjustes(const ArchivoINI& ini, const fs::path& directorioDelPrograma) {
    AjustesDelPrograma ajustes;
    PonerRutasPorDefecto(ajustes, directorioDelPrograma);
    ajustes.IdiomaActual = ini.LeerClave("Language");
    for (const auto& [clave, ruta] : rutas) ajustes.*ruta = LeerRuta(ini, clave, ajustes.*ruta);
    ajustes.EditorDeTextos = ini.LeerClave("Editor");
    ajustes.LogonAlInicio = SiSalvoNo(ini, "Logon at startup");
    ajustes.ChequearErroresLogon = SiSalvoNo(ini, "Check Logon Errors");
    ajustes.ImportarSHDBLogon = SiSalvoNo(ini, "Import SHDB after Logon");
    ajustes.MostrarHallazgos = SiSalvoNo(ini, "Show Findings");

    auto& preferencias = ajustes.preferencias;
    preferencias.OptionWS_UPLOAD = ini.LeerClave("Upload function") == "WS_UPLOAD";
    preferencias.CheckActivateNamingConventions = ini.LeerClave("Activate Naming Conventions") == "Yes" ? 1 : 0;
    for (const auto& [clave, prefijo] : prefijos) preferencias.*prefijo = ConDefecto(ini, clave, preferencias.*prefijo);
    const std::string adiciones = ini.LeerClave("Dataset Additions");
    preferencias.AdicionesDataset = AdicionesDeEncoding(EncodingDeAdiciones(adiciones), adiciones);

    auto& nombres = ajustes.nombresRFC;
    nombres.ModuloRFCPropio = Mayusculas(ini.LeerClave("RFC Module"));
    nombres.ModuloRFCEstandar = Mayusculas(ini.LeerClave("RFC Report Runner"));
    nombres.BusquedaDeFunciones = Mayusculas(ini.LeerClave("RFC Function Search"));
    nombres.LectorFuenteA = Mayusculas(ini.LeerClave("RFC Source Reader A"));
    nombres.LectorFuenteB = Mayusculas(ini.LeerClave("RFC Source Reader B"));
    nombres.IncludeEstandar = Mayusculas(ini.LeerClave("RFC Standard Include"));
    ajustes.BibliotecaRFC = ini.LeerClave("RFC Library");
    const std::string limite = ini.LeerClave("RFC Time Limit");
    if (!limite.empty()) ajustes.SegundosDeLlamadaRFC = static_cast<int>(std::clamp(Numero(limite), 0.0, maximoSegundosDeLlamada));
    return ajustes;
}

bool HayDirectorioElegido(const AjustesDelPrograma& ajustes) {
    return (ajustes.DirectorioDocumentos / "").lexically_normal() != (ajustes.directorioDelPrograma / "").lexically_normal();
}

void GuardarAjustes(ArchivoINI& ini, const AjustesDelPrograma& ajustes) {
    const auto& preferencias = ajustes.preferencias;
    ini.EscribirClave("Language", ajustes.IdiomaActual);
    AjustesDelPrograma defecto;
    PonerRutasPorDefecto(defecto, ajustes.directorioDelPrograma);
    for (const auto& [clave, ruta] : rutas) EscribirRuta(ini, clave, ajustes.*ruta, defecto.*ruta);
    // Where no editor was ever chosen there is no entry.
    if (ajustes.EditorDeTextos != ini.LeerClave("Editor")) ini.EscribirClave("Editor", ajustes.EditorDeTextos);
    ini.EscribirClave("Upload Function", preferencias.OptionWS_UPLOAD ? "WS_UPLOAD" : "GUI_UPLOAD");
    ini.EscribirClave("Dataset Additions", preferencias.AdicionesDataset);
    ini.EscribirClave("Activate Naming Conventions", SiONo(preferencias.CheckActivateNamingConventions == 1));
    for (const auto& [clave, prefijo] : prefijos) ini.EscribirClave(clave, preferencias.*prefijo);
    ini.EscribirClave("Logon at startup", SiONo(ajustes.LogonAlInicio));
    ini.EscribirClave("Check Logon Errors", SiONo(ajustes.ChequearErroresLogon));
    ini.EscribirClave("Import SHDB after Logon", SiONo(ajustes.ImportarSHDBLogon));
    ini.EscribirClave("Show Findings", SiONo(ajustes.MostrarHallazgos));
}

}  // namespace qor

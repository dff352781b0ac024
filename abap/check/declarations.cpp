#include "abap/check/declarations.h"

#include <algorithm>
#include <utility>

namespace qor::abap {

namespace {

// The fields of the system's structure.
constexpr std::string_view camposDelSistema[] = {
    "SUBRC", "TABIX", "DATUM", "UZEIT", "UNAME", "MANDT",  "LANGU", "TCODE", "FDPOS", "TFILL", "INDEX", "SYSID",  "SAPRL", "REPID",
    "UCOMM", "DYNNR", "BATCH", "ULINE", "VLINE", "DBCNT",  "MSGID", "MSGTY", "MSGNO", "MSGV1", "MSGV2", "MSGV3",  "MSGV4", "ABCDE",
    "PAGNO", "TLOPC", "TMAXL", "TOCCU", "TTABC", "TSTIS",  "TTABI", "COLNO", "LINCT", "LINNO", "LINSZ", "PAGCT",  "MACOL", "MAROW",
    "TLENG", "SFOFF", "WILLI", "LILLI", "FLENG", "CUCOL",  "CUROW", "LSIND", "LISTI", "STEPL", "TPAGI", "WINX1",  "WINX2", "WINY1",
    "WINY2", "WINCO", "WINRO", "WINDI", "SROWS", "SCOLS",  "LOOPC", "FOLEN", "FODEC", "TZONE", "DAYST", "FTYPE",  "APPLI", "FDAYW",
    "CCURS", "CCURT", "DEBUG", "CTYPE", "INPUT", "MODNO",  "BINPT", "CALLD", "DYNGR", "NEWPA", "PRI40", "RSTRT",  "WTITL", "CPAGE",
    "DBNAM", "PREFX", "FMKEY", "PEXPI", "PRINI", "PRIMM",  "PRREL", "PLAYO", "PRBIG", "PLAYP", "PRNEW", "PRLOG",  "PDEST", "PLIST",
    "PAUTH", "PRDSN", "PNWPA", "CALLR", "REPI2", "RTITL",  "PRREC", "PRTXT", "PRABT", "LPASS", "NRPAG", "PAART",  "PRCOP", "BATZS",
    "BSPLD", "BREP4", "BATZO", "BATZD", "BATZW", "BATZM",  "CTABL", "DBSYS", "DCSYS", "MACDB", "OPSYS", "PFKEY",  "CFWAE", "CHWAE",
    "SPONO", "SPONR", "WAERS", "CDATE", "SLSET", "SUBTY",  "SUBCS", "GROUP", "FFILE", "DSNAM", "TABID", "TFDSN",  "LSTAT", "MARKY",
    "SFNAM", "TNAME", "MSGLI", "TITLE", "ENTRY", "LISEL",  "XCODE", "CPROG", "XPROG", "XFORM", "LDBPG", "TVAR0",  "TVAR1", "TVAR2",
    "TVAR3", "TVAR4", "TVAR5", "TVAR6", "TVAR7", "TVAR8",  "TVAR9", "ONCOM", "WINSL", "STACO", "STARO", "DATAR",  "HOST",  "LOCDB",
    "LOCOP", "DATLO", "TIMLO", "ZONLO", "DYNSC", "IFIELD", "SFOFF", "TPAGI", "DATUT", "TIMUT", "NODYN", "SYSTEM",
};

constexpr std::string_view datosDelLenguaje[] = {"SPACE", "TEXT",      "SCREEN",     "ME",
                                                 "SUPER", "ABAP_TRUE", "ABAP_FALSE", "ABAP_UNDEFINED"};

// Of these types a record is as long as its fields are together.
bool EsDeCaracteres(const Dato& dato) {
    return dato.tipo == 'C' || dato.tipo == 'N' || dato.tipo == 'D' || dato.tipo == 'T' || dato.tipo == 'X' || dato.tipo == 'u';
}

std::size_t Mezclar(Clave clave) { return static_cast<std::size_t>(clave ^ (clave >> 32)); }

}  // namespace

Dato DatoAbierto(Clave clave, std::string_view nombre, int linea) {
    Dato dato;
    dato.clave = clave;
    dato.nombre = nombre;
    dato.linea = linea;
    dato.tipo = '?';
    dato.largo = largoDesconocido;
    dato.abierto = true;
    return dato;
}

int Registro::Largo() const {
    if (abierto) return largoDesconocido;
    int suma = 0;
    for (const auto& componente : componentes.Datos()) {
        if (componente.largo == largoDesconocido || componente.tabla || !EsDeCaracteres(componente)) return largoDesconocido;
        suma += componente.largo;
        if (suma > 999999) return largoDesconocido;
    }
    return suma;
}

const Dato* Ambito::Buscar(Clave clave) const {
    if (casillas_.empty()) return nullptr;
    const std::size_t mascara = casillas_.size() - 1;
    for (std::size_t i = Mezclar(clave) & mascara; casillas_[i] != 0; i = (i + 1) & mascara) {
        const Dato& dato = datos_[casillas_[i] - 1];
        if (dato.clave == clave) return &dato;
    }
    return nullptr;
}

const Dato* Ambito::Agregar(const Dato& dato) {
    if (const Dato* primero = Buscar(dato.clave)) {
        if (primero->linea != 0) return primero;
        datos_[static_cast<std::size_t>(primero - datos_.data())] = dato;
        return nullptr;
    }
    if (2 * (datos_.size() + 1) > casillas_.size()) Crecer();
    datos_.push_back(dato);
    const std::size_t mascara = casillas_.size() - 1;
    std::size_t i = Mezclar(dato.clave) & mascara;
    while (casillas_[i] != 0) i = (i + 1) & mascara;
    casillas_[i] = static_cast<std::uint32_t>(datos_.size());
    return nullptr;
}

void Ambito::Crecer() {
    casillas_.assign(std::max<std::size_t>(16, casillas_.size() * 2), 0);
    const std::size_t mascara = casillas_.size() - 1;
    for (std::size_t n = 0; n < datos_.size(); ++n) {
        std::size_t i = Mezclar(datos_[n].clave) & mascara;
        while (casillas_[i] != 0) i = (i + 1) & mascara;
        casillas_[i] = static_cast<std::uint32_t>(n + 1);
    }
}

void Ambito::Vaciar() {
    datos_.clear();
    casillas_.clear();
}

Declaraciones::Declaraciones() {
    for (const auto nombre : datosDelLenguaje) globales_.Agregar(DatoAbierto(ClaveDe(nombre), nombre, 0));
    Registro sistema;
    for (const auto nombre : camposDelSistema) {
        sistema.componentes.Agregar(DatoAbierto(ClaveDe(nombre), nombre, 0));
    }
    for (const std::string_view nombre : {"SY", "SYST"}) {
        Dato dato = DatoAbierto(ClaveDe(nombre), nombre, 0);
        dato.abierto = false;
        dato.tipo = 'u';
        if (registros_.empty()) AgregarRegistro(sistema);
        dato.registro = 0;
        globales_.Agregar(dato);
    }
}

const Dato* Declaraciones::Buscar(Clave clave) const {
    if (enForma_) {
        if (const Dato* local = locales_.Buscar(clave)) return local;
    }
    return globales_.Buscar(clave);
}

const Dato* Declaraciones::BuscarTipo(Clave clave) const {
    if (enForma_) {
        if (const Dato* local = tiposLocales_.Buscar(clave)) return local;
    }
    return tipos_.Buscar(clave);
}

void Declaraciones::EntrarEnForma() {
    SalirDeForma();
    enForma_ = true;
}

void Declaraciones::SalirDeForma() {
    enForma_ = false;
    locales_.Vaciar();
    tiposLocales_.Vaciar();
}

int Declaraciones::AgregarRegistro(Registro registro) {
    registros_.push_back(std::move(registro));
    return static_cast<int>(registros_.size()) - 1;
}

}  // namespace qor::abap

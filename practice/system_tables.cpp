#include "practice/system_tables.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "base/text.h"
#include "practice/role.h"

namespace qor {

namespace {

using abap::ValorDeBase;

// What AS4LOCAL of DD03L says.
constexpr const char* activo = "A";
constexpr const char* inactivo = "N";

// A row by the names of its columns; the others are initial.
class Fila {
public:
    explicit Fila(const DefinicionDeTabla& tabla) : tabla_(tabla), valores_(tabla.estructura.componentes.size()) {}

    Fila& Con(std::string_view columna, std::string_view valor) {
        if (const int lugar = tabla_.Columna(columna); lugar >= 0) valores_[static_cast<std::size_t>(lugar)] = std::string(valor);
        return *this;
    }

    // Digits behind zeros, as long as the column.
    Fila& ConNumero(std::string_view columna, std::int64_t numero) {
        const int lugar = tabla_.Columna(columna);
        if (lugar < 0) return *this;
        const std::size_t largo = tabla_.estructura.componentes[static_cast<std::size_t>(lugar)].tipo.largo;
        const std::string cifras = std::to_string(numero);
        return Con(columna, std::string(cifras.size() < largo ? largo - cifras.size() : 0, '0') + cifras);
    }

    void Poner(const PonerFila& poner) const { poner(valores_); }

private:
    const DefinicionDeTabla& tabla_;
    std::vector<ValorDeBase> valores_;
};

using Relleno = std::function<void(const DefinicionDeTabla&, const PonerFila&)>;

void LlenarClientes(const DefinicionDeTabla& tabla, const PonerFila& poner, const std::string& cliente, const std::string& rol) {
    Fila(tabla).Con("MANDT", cliente).Con("MTEXT", "Practice system").Con("CCCATEGORY", rol).Poner(poner);
}

void LlenarFunciones(const DefinicionDeTabla& tabla, const PonerFila& poner, CatalogoDePractica& catalogo) {
    for (const auto& funcion : catalogo.Funciones()) {
        if (catalogo.EsDoble(funcion)) continue;
        std::string grupo = "SAPL" + Mayusculas(funcion.objeto);
        std::replace(grupo.begin(), grupo.end(), ' ', '_');
        Fila(tabla)
            .Con("FUNCNAME", funcion.nombre)
            .Con("PNAME", grupo.substr(0, 40))
            .Con("INCLUDE", "01")
            .Con("FMODE", "R")
            .Poner(poner);
    }
}

void LlenarTextos(const DefinicionDeTabla& tabla, const PonerFila& poner, CatalogoDePractica& catalogo) {
    for (const auto& funcion : catalogo.Funciones()) {
        if (catalogo.EsDoble(funcion)) continue;
        const auto texto = funcion.Texto();
        if (!texto.empty()) Fila(tabla).Con("SPRAS", "E").Con("FUNCNAME", funcion.nombre).Con("STEXT", texto).Poner(poner);
    }
}

void LlenarDocumentacion(const DefinicionDeTabla& tabla, const PonerFila& poner, CatalogoDePractica& catalogo) {
    for (const auto& funcion : catalogo.Funciones()) {
        if (catalogo.EsDoble(funcion)) continue;
        if (funcion.LineasTrasElTexto().empty()) continue;
        Fila(tabla)
            .Con("ID", "FU")
            .Con("OBJECT", funcion.nombre)
            .Con("LANGU", "E")
            .Con("TYP", "E")
            .ConNumero("DOKVERSION", 1)
            .Poner(poner);
    }
}

void LlenarParametros(const DefinicionDeTabla& tabla, const PonerFila& poner, CatalogoDePractica& catalogo) {
    for (const auto& funcion : catalogo.Funciones()) {
        if (catalogo.EsDoble(funcion)) continue;
        std::map<char, int> lugares;
        for (const auto& parametro : funcion.parametros) {
            Fila(tabla)
                .Con("FUNCNAME", funcion.nombre)
                .Con("R3STATE", "A")
                .Con("PARAMETER", parametro.nombre)
                .Con("PARAMTYPE", std::string_view(&parametro.clase, 1))
                .Con("STRUCTURE", parametro.tipo)
                .ConNumero("PPOSITION", ++lugares[parametro.clase])
                .Con("OPTIONAL", parametro.opcional ? "X" : "")
                .Poner(poner);
        }
    }
}

void LlenarMetodos(const DefinicionDeTabla& tabla, const PonerFila& poner, CatalogoDePractica& catalogo) {
    std::map<std::string_view, int> verbos;
    for (const auto& funcion : catalogo.Funciones()) {
        Fila(tabla)
            .Con("LOBJTYPE", funcion.objeto.substr(0, 40))
            .Con("VERB", funcion.nombre.substr(0, 32))
            .Con("LANGUAGE", "E")
            .Con("ABAPNAME", funcion.nombre)
            .Poner(poner);
    }
}

std::string_view TipoInterno(abap::Tipo tipo) {
    switch (tipo) {
        case abap::Tipo::N: return "N";
        case abap::Tipo::D: return "D";
        case abap::Tipo::T: return "T";
        case abap::Tipo::I: return "I";
        case abap::Tipo::P: return "P";
        case abap::Tipo::F: return "F";
        case abap::Tipo::X: return "X";
        default: return "C";
    }
}

// What a type of a report is called in the dictionary, and how many characters or digits it takes there.
CampoDeDiccionario CampoDe(const abap::Componente& columna) {
    constexpr int cifrasDeEntero = 10;
    constexpr int cifrasDeFlotante = 16;
    CampoDeDiccionario campo{columna.nombre, "CHAR", static_cast<int>(columna.tipo.largo), columna.tipo, columna.clave};
    switch (columna.tipo.tipo) {
        case abap::Tipo::N: campo.clase = "NUMC"; break;
        case abap::Tipo::D: campo.clase = "DATS"; break;
        case abap::Tipo::T: campo.clase = "TIMS"; break;
        case abap::Tipo::X: campo.clase = "RAW"; break;
        case abap::Tipo::I:
            campo.clase = "INT4";
            campo.largo = cifrasDeEntero;
            break;
        case abap::Tipo::F:
            campo.clase = "FLTP";
            campo.largo = cifrasDeFlotante;
            break;
        case abap::Tipo::P:
            campo.clase = "DEC";
            campo.largo = 2 * campo.largo - 1;
            break;
        default: break;
    }
    return campo;
}

// The row of DD03L; of a field without a class no more than its name and place.
void PonerCampo(const DefinicionDeTabla& tabla, const PonerFila& poner, std::string_view estructura,
                const CampoDeDiccionario& campo, const char* estado, int lugar) {
    Fila fila(tabla);
    fila.Con("TABNAME", estructura)
        .Con("FIELDNAME", campo.nombre)
        .Con("AS4LOCAL", estado)
        .ConNumero("AS4VERS", 0)
        .ConNumero("POSITION", lugar);
    if (!campo.clase.empty()) {
        fila.Con("KEYFLAG", campo.clave ? "X" : "")
            .Con("INTTYPE", TipoInterno(campo.tipo.tipo))
            .ConNumero("INTLEN", campo.tipo.largo)
            .Con("DATATYPE", campo.clase)
            .ConNumero("LENG", campo.largo)
            .ConNumero("DECIMALS", campo.tipo.decimales);
    }
    fila.Poner(poner);
}

// The fields of a structure as they are known beside the catalogue: of a table of the file its columns, else those of its
// definition; where that tells some fields alone, and where there is none, those that widths tell too.
std::vector<CampoDeDiccionario> CamposConocidos(std::string_view estructura, BaseDePractica& base,
                                                DiccionarioDePractica& diccionario, bool deArchivo) {
    std::vector<CampoDeDiccionario> campos;
    if (deArchivo) {
        for (const auto& columna : base.BuscarTabla(estructura)->estructura.componentes) campos.push_back(CampoDe(columna));
        return campos;
    }
    const auto entrada = diccionario.Entradas().find(estructura);
    const bool definida = entrada != diccionario.Entradas().end() && entrada->second.clase != EntradaDeDiccionario::Clase::Elemento;
    if (definida) campos = entrada->second.campos;
    const auto anchos = diccionario.Anchos().find(estructura);
    if ((definida && entrada->second.clase != EntradaDeDiccionario::Clase::Campos) || anchos == diccionario.Anchos().end()) {
        return campos;
    }
    for (const auto& [nombre, ancho] : anchos->second) {
        if (definida && entrada->second.Buscar(nombre) != nullptr) continue;
        campos.push_back({nombre, "CHAR", static_cast<int>(ancho), {abap::Tipo::C, ancho, 0, nullptr}, false});
    }
    return campos;
}

// Every field that the system knows of. A structure that the catalogue names has the fields that it has there, so that a catalogue
// which is made of them is the same one; what else is known of it stands behind them, as not active.
void LlenarCampos(const DefinicionDeTabla& tabla, const PonerFila& poner, BaseDePractica& base,
                  DiccionarioDePractica& diccionario) {
    std::map<std::string, bool, std::less<>> nombres;  // and whether it is a table of the file
    for (const auto& [nombre, campos] : diccionario.Catalogo().LasEstructuras()) nombres.emplace(nombre, false);
    for (const auto& [nombre, entrada] : diccionario.Entradas()) {
        if (entrada.clase != EntradaDeDiccionario::Clase::Elemento) nombres.emplace(nombre, false);
    }
    for (const auto& [nombre, campos] : diccionario.Anchos()) nombres.emplace(nombre, false);
    for (const auto& resumen : base.Tablas()) nombres[resumen.nombre] = true;

    const auto& catalogo = diccionario.Catalogo().LasEstructuras();
    for (const auto& [nombre, deArchivo] : nombres) {
        auto conocidos = CamposConocidos(nombre, base, diccionario, deArchivo);
        int lugar = 0;
        const auto deCatalogo = catalogo.find(nombre);
        if (deCatalogo != catalogo.end()) {
            for (const auto campo : deCatalogo->second) {
                const auto conocido =
                    std::find_if(conocidos.begin(), conocidos.end(), [&](const auto& c) { return c.nombre == campo; });
                if (conocido == conocidos.end()) {
                    PonerCampo(tabla, poner, nombre, {std::string(campo), {}, 0, {}, false}, activo, ++lugar);
                } else {
                    PonerCampo(tabla, poner, nombre, *conocido, activo, ++lugar);
                    conocidos.erase(conocido);
                }
            }
        }
        const auto* const estado = deCatalogo == catalogo.end() ? activo : inactivo;
        for (const auto& campo : conocidos) PonerCampo(tabla, poner, nombre, campo, estado, ++lugar);
    }
}

// Columns of a table that come from elsewhere, each as an expression of SQL.
using ColumnasDeVista = std::map<std::string_view, std::string>;

// A view with all columns of a table; the others are initial.
std::string Vista(const DefinicionDeTabla& tabla, const ColumnasDeVista& columnas, std::string_view origen) {
    std::string texto = "SELECT ";
    bool primera = true;
    for (const auto& columna : tabla.estructura.componentes) {
        if (!std::exchange(primera, false)) texto += ", ";
        const auto lugar = columnas.find(columna.nombre);
        if (lugar != columnas.end()) {
            texto += lugar->second;
        } else if (columna.tipo.tipo == abap::Tipo::I) {
            texto += "0";
        } else if (columna.tipo.tipo == abap::Tipo::C) {
            texto += "''";
        } else {
            texto += "'" + std::string(columna.tipo.largo, '0') + "'";
        }
        texto += " AS " + Entrecomillado(columna.nombre);
    }
    return texto + " FROM main." + std::string(origen);
}

std::string VistaDeProgramas(const DefinicionDeTabla& tabla) {
    return Vista(tabla,
                 {{"NAME", "name"},
                  {"SUBC", "'1'"},
                  {"APPL", "'*'"},
                  {"CNAM", "creator"},
                  {"CDAT", "date"},
                  {"UNAM", "creator"},
                  {"UDAT", "date"},
                  {"VERN", "'000001'"},
                  {"RSTAT", "'T'"},
                  {"RLOAD", "'E'"},
                  {"FIXPT", "'X'"},
                  {"SDATE", "date"},
                  {"STIME", "time"},
                  {"IDATE", "date"},
                  {"ITIME", "time"}},
                 "_qor_programs");
}

// Sessions, and behind them recordings.
std::string VistaDeCola(const DefinicionDeTabla& tabla, std::string_view cliente) {
    const ColumnasDeVista comunes = {{"GROUPID", "grp"},  {"QID", "qid"},      {"CREATOR", "creator"},
                                     {"CREDATE", "date"}, {"CRETIME", "time"}, {"USERID", "creator"}};
    ColumnasDeVista deSesiones = comunes;
    deSesiones.insert(
        {{"DATATYP", "'BDC'"}, {"MANDANT", "client"}, {"QSTATE", "state"}, {"QERASE", "keep"}, {"TRANSCNT", "transactions"}});
    ColumnasDeVista deGrabaciones = comunes;
    deGrabaciones.insert({{"DATATYP", "'%BDC'"}, {"MANDANT", "'" + std::string(cliente) + "'"}, {"QERASE", "'X'"}});
    return Vista(tabla, deSesiones, "_qor_queue") + " UNION ALL " + Vista(tabla, deGrabaciones, "_qor_recordings");
}

DefinicionDeTabla Definir(std::string_view nombre, const EntradaDeDiccionario& entrada) {
    DefinicionDeTabla tabla;
    tabla.clase = DefinicionDeTabla::Clase::DeDiccionario;
    tabla.estructura.nombre = nombre;
    for (std::size_t i = 0; i < entrada.campos.size(); ++i) {
        const auto& campo = entrada.campos[i];
        tabla.estructura.Agregar(campo.nombre, campo.tipo, campo.clave);
        if (i == 0 && campo.clase == "CLNT" && campo.clave) tabla.cliente = 0;
        if (i > 0 && campo.clase == "LCHR" && entrada.campos[i - 1].clase == "INT2") tabla.larga = static_cast<int>(i);
    }
    tabla.estructura.Cerrar();
    return tabla;
}

}  // namespace

TablasDelSistema::TablasDelSistema(BaseDePractica& base, DiccionarioDePractica& diccionario)
    : base_(base), diccionario_(diccionario) {
    base_.PonerProveedor(this);
}

TablasDelSistema::~TablasDelSistema() { base_.PonerProveedor(nullptr); }

std::optional<TablaProvista> TablasDelSistema::Proveer(std::string_view nombre) {
    const auto lugar = diccionario_.Entradas().find(nombre);
    if (lugar == diccionario_.Entradas().end() || lugar->second.clase != EntradaDeDiccionario::Clase::Tabla) return std::nullopt;
    TablaProvista provista;
    provista.definicion = Definir(nombre, lugar->second);
    const auto deCatalogo = [&](auto llenar) -> Relleno {
        return
            [&catalogo = diccionario_.Catalogo(), llenar](const auto& tabla, const auto& poner) { llenar(tabla, poner, catalogo); };
    };
    const std::map<std::string_view, Relleno> rellenos = {
        {"T000", [&base = base_](const auto& tabla,
                                 const auto& poner) { LlenarClientes(tabla, poner, base.Cliente(), RolDeSistema(base)); }},
        {"TFDIR", deCatalogo(LlenarFunciones)},
        {"TFTIT", deCatalogo(LlenarTextos)},
        {"DOKHL", deCatalogo(LlenarDocumentacion)},
        {"FUPARAREF", deCatalogo(LlenarParametros)},
        {"SWOTLV", deCatalogo(LlenarMetodos)},
        {"DD03L", [&base = base_, &diccionario = diccionario_](const auto& tabla, const auto& poner) {
             LlenarCampos(tabla, poner, base, diccionario);
         }}};
    if (nombre == "TRDIR" || nombre == "APQI") {
        provista.definicion.vista = true;
        provista.vista =
            nombre == "TRDIR" ? VistaDeProgramas(provista.definicion) : VistaDeCola(provista.definicion, base_.Cliente());
    } else if (const auto relleno = rellenos.find(nombre); relleno != rellenos.end()) {
        provista.llenar = [tabla = provista.definicion, llenar = relleno->second](const PonerFila& poner) { llenar(tabla, poner); };
    } else {
        return provista;
    }
    provista.derivada = true;
    return provista;
}

}  // namespace qor

#include "practice/system_tables.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "base/text.h"

namespace qor {

namespace {

using abap::ValorDeBase;

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

void LlenarClientes(const DefinicionDeTabla& tabla, const PonerFila& poner, const std::string& cliente) {
    // A client for tests, in which programs can be changed.
    Fila(tabla).Con("MANDT", cliente).Con("MTEXT", "Practice system").Con("CCCATEGORY", "T").Poner(poner);
}

void LlenarFunciones(const DefinicionDeTabla& tabla, const PonerFila& poner, EstructurasDeCatalogo& catalogo) {
    for (const auto& funcion : catalogo.Funciones()) {
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

void LlenarTextos(const DefinicionDeTabla& tabla, const PonerFila& poner, EstructurasDeCatalogo& catalogo) {
    for (const auto& funcion : catalogo.Funciones()) {
        Fila(tabla).Con("SPRAS", "E").Con("FUNCNAME", funcion.nombre).Con("STEXT", funcion.texto.substr(0, 74)).Poner(poner);
    }
}

void LlenarParametros(const DefinicionDeTabla& tabla, const PonerFila& poner, EstructurasDeCatalogo& catalogo) {
    for (const auto& funcion : catalogo.Funciones()) {
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

void LlenarMetodos(const DefinicionDeTabla& tabla, const PonerFila& poner, EstructurasDeCatalogo& catalogo) {
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

// The row of DD03L for a field of which at least the name is known.
Fila FilaDeCampo(const DefinicionDeTabla& tabla, std::string_view estructura, std::string_view campo, int lugar) {
    Fila fila(tabla);
    fila.Con("TABNAME", estructura)
        .Con("FIELDNAME", campo)
        .Con("AS4LOCAL", "A")
        .ConNumero("AS4VERS", 0)
        .ConNumero("POSITION", lugar);
    return fila;
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

void PonerCampo(const DefinicionDeTabla& tabla, const PonerFila& poner, std::string_view estructura,
                const CampoDeDiccionario& campo, int lugar) {
    FilaDeCampo(tabla, estructura, campo.nombre, lugar)
        .Con("KEYFLAG", campo.clave ? "X" : "")
        .Con("INTTYPE", TipoInterno(campo.tipo.tipo))
        .ConNumero("INTLEN", campo.tipo.largo)
        .Con("DATATYPE", campo.clase)
        .ConNumero("LENG", campo.largo)
        .ConNumero("DECIMALS", campo.tipo.decimales)
        .Poner(poner);
}

// Every field that the system knows of, each structure from the one that knows it best.
void LlenarCampos(const DefinicionDeTabla& tabla, const PonerFila& poner, BaseDePractica& base,
                  DiccionarioDePractica& diccionario) {
    std::set<std::string, std::less<>> vistas;
    for (const auto& resumen : base.Tablas()) {
        int lugar = 0;
        vistas.insert(resumen.nombre);
        for (const auto& columna : base.BuscarTabla(resumen.nombre)->estructura.componentes) {
            PonerCampo(tabla, poner, resumen.nombre, CampoDe(columna), ++lugar);
        }
    }
    for (const auto& [nombre, entrada] : diccionario.Entradas()) {
        if (entrada.clase == EntradaDeDiccionario::Clase::Elemento || !vistas.insert(nombre).second) continue;
        int lugar = 0;
        for (const auto& campo : entrada.campos) PonerCampo(tabla, poner, nombre, campo, ++lugar);
        if (entrada.clase == EntradaDeDiccionario::Clase::Campos) vistas.erase(nombre);
    }
    const auto ancho = [&](std::string_view estructura, std::string_view campo) -> std::uint32_t {
        const auto anchos = diccionario.Anchos().find(estructura);
        if (anchos == diccionario.Anchos().end()) return 0;
        const auto lugar = anchos->second.find(campo);
        return lugar == anchos->second.end() ? 0 : lugar->second;
    };
    const auto yaPuesto = [&](std::string_view estructura, std::string_view campo) {
        const auto entrada = diccionario.Entradas().find(estructura);
        return entrada != diccionario.Entradas().end() && entrada->second.Buscar(campo) != nullptr;
    };
    const auto ponerConAncho = [&](std::string_view estructura, std::string_view campo, int lugar) {
        if (yaPuesto(estructura, campo)) return;
        const auto largo = ancho(estructura, campo);
        auto fila = FilaDeCampo(tabla, estructura, campo, lugar);
        if (largo > 0) {
            fila.Con("INTTYPE", "C")
                .ConNumero("INTLEN", largo)
                .Con("DATATYPE", "CHAR")
                .ConNumero("LENG", largo)
                .ConNumero("DECIMALS", 0);
        }
        fila.Poner(poner);
    };
    for (const auto& [nombre, campos] : diccionario.Catalogo().LasEstructuras()) {
        if (!vistas.insert(std::string(nombre)).second) continue;
        int lugar = 0;
        for (const auto campo : campos) ponerConAncho(nombre, campo, ++lugar);
    }
    for (const auto& [nombre, campos] : diccionario.Anchos()) {
        if (!vistas.insert(nombre).second) continue;
        int lugar = 0;
        for (const auto& [campo, largo] : campos) ponerConAncho(nombre, campo, ++lugar);
    }
}

// A view with all columns of a table, of which those that are named here come from elsewhere.
std::string Vista(const DefinicionDeTabla& tabla, const std::map<std::string_view, std::string>& columnas,
                  std::string_view origen) {
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

std::string VistaDeCola(const DefinicionDeTabla& tabla) {
    return Vista(tabla,
                 {{"DATATYP", "'BDC'"},
                  {"MANDANT", "client"},
                  {"GROUPID", "grp"},
                  {"QID", "qid"},
                  {"QSTATE", "state"},
                  {"QERASE", "keep"},
                  {"CREATOR", "creator"},
                  {"CREDATE", "date"},
                  {"CRETIME", "time"},
                  {"USERID", "creator"},
                  {"TRANSCNT", "transactions"}},
                 "_qor_queue");
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
        {"T000", [&base = base_](const auto& tabla, const auto& poner) { LlenarClientes(tabla, poner, base.Cliente()); }},
        {"TFDIR", deCatalogo(LlenarFunciones)},
        {"TFTIT", deCatalogo(LlenarTextos)},
        {"FUPARAREF", deCatalogo(LlenarParametros)},
        {"SWOTLV", deCatalogo(LlenarMetodos)},
        {"DD03L", [&base = base_, &diccionario = diccionario_](const auto& tabla, const auto& poner) {
             LlenarCampos(tabla, poner, base, diccionario);
         }}};
    if (nombre == "TRDIR" || nombre == "APQI") {
        provista.definicion.vista = true;
        provista.vista = nombre == "TRDIR" ? VistaDeProgramas(provista.definicion) : VistaDeCola(provista.definicion);
    } else if (const auto relleno = rellenos.find(nombre); relleno != rellenos.end()) {
        provista.llenar = [tabla = provista.definicion, llenar = relleno->second](const PonerFila& poner) { llenar(tabla, poner); };
    } else {
        return provista;
    }
    provista.derivada = true;
    return provista;
}

}  // namespace qor

#include "abap/check/phrase.h"

#include <algorithm>

#include "abap/keywords.h"

namespace qor::abap {

namespace {

// Signs, and what else can't be an operand.
bool EsSigno(const Palabra& palabra) {
    switch (palabra.texto.front()) {
        case '=':
        case '>':
        case ')':
        case '(':
        case ',':
        case ':':
        case ';':
        case '?':
        case '/':
        case '&':
        case '|':
        case '!': return true;
        case '<': return !EsSimboloDeCampo(palabra.texto);
        case '*': return palabra.texto.size() == 1 || palabra.texto[1] == '*';
        case '+':
        case '-': return palabra.texto.size() == 1;
        default: return false;
    }
}

// The name and its components.
std::string_view SinTrozo(std::string_view palabra) { return palabra.substr(0, palabra.find_first_of("+([")); }

}  // namespace

const Dato* BuscarComponentes(const Declaraciones& datos, const Dato& dato, std::string_view componentes, bool& ajeno) {
    const Dato* actual = &dato;
    ajeno = false;
    while (true) {
        const auto guion = componentes.find('-');
        if (actual->registro == sinRegistro) {
            ajeno = !actual->abierto;
            return nullptr;
        }
        const Registro& registro = datos.De(actual->registro);
        const Dato* componente = registro.componentes.Buscar(ClaveDe(componentes.substr(0, guion)));
        if (componente == nullptr) {
            ajeno = !registro.abierto;
            return nullptr;
        }
        if (guion == std::string_view::npos) return componente;
        actual = componente;
        componentes.remove_prefix(guion + 1);
    }
}

bool Frase::EsAlguna(std::initializer_list<Clave> claves, std::size_t n) const {
    return Hay(n) && std::find(claves.begin(), claves.end(), Mirar(n).clave) != claves.end();
}

bool Frase::Toma(Clave clave) {
    if (!Es(clave)) return false;
    Avanzar();
    return true;
}

bool Frase::Toma(Clave una, Clave otra) {
    if (!Es(una) || !Es(otra, 1)) return false;
    Avanzar(2);
    return true;
}

bool Frase::Exige(Clave clave) {
    if (Toma(clave)) return true;
    return FallaAqui();
}

bool Frase::Algo() {
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    Avanzar();
    return true;
}

bool Frase::Fin() { return !Hay() || Falla(Falta::Clase::PalabrasDeMas); }

bool Frase::Falla(Falta::Clase clase, const Palabra& palabra) {
    if (!rendida_ && !fallada_) fallada_ = Fallo{clase, palabra};
    return false;
}

void Frase::Decir(Falta::Clase clase, const Palabra& palabra, std::string_view nombre) {
    if (!dichas_.insert(ClaveDe(nombre)).second) return;
    contexto_.informe.Agregar(clase, palabra, nombre);
}

const Dato* Frase::SinDeclarar(const Palabra& palabra, const Referencia& r) {
    const auto& datos = contexto_.datos;
    if (r.nombre.front() == '*' && r.nombre.size() > 1) {
        if (const Dato* tabla = datos.Buscar(ClaveDe(r.nombre.substr(1)))) return tabla;
    }
    // %_NAME belongs to the system, TABLE~COLUMN to the database.
    if (r.nombre.front() == '%' || r.nombre.find('~') != std::string_view::npos) return nullptr;
    if (contexto_.incierto || contexto_.perdidas.contains(palabra.base)) return nullptr;
    // A name with a hyphen in it, which was told where it is declared.
    const auto entero = SinTrozo(palabra.texto);
    if (r.tieneComponente && datos.Buscar(ClaveDe(entero)) != nullptr) return nullptr;
    if (contexto_.grupos.contains(ClaveDe(r.nombre.substr(0, r.nombre.find('_'))))) return nullptr;
    Decir(Falta::Clase::NombreSinDeclarar, palabra, r.nombre);
    return nullptr;
}

void Frase::RevisarIndice(const Palabra& palabra, std::string_view indice) {
    if (EsEntero(indice) || indice == "*") return;
    const auto nombre = indice.substr(0, indice.find('-'));
    if (EsSimboloDeCampo(indice) || EsDeObjeto(indice)) return;
    const Clave clave = ClaveDe(nombre);
    if (nombre.empty() || contexto_.datos.Buscar(clave) != nullptr) return;
    if (contexto_.incierto || contexto_.perdidas.contains(clave)) return;
    if (EsNombreDeDato(nombre)) {
        Decir(Falta::Clase::NombreSinDeclarar, palabra, nombre);
    } else {
        Decir(Falta::Clase::LargoInvalido, palabra, palabra.texto);
    }
}

// Offset and length of a field.
void Frase::RevisarTrozo(const Palabra& palabra, const Referencia& r, const Dato* dato) {
    if (r.tieneDesplazamiento) RevisarIndice(palabra, r.desplazamiento);
    if (r.tieneLargo) RevisarIndice(palabra, r.largo);
    const bool conLargo = EsEntero(r.largo);
    if (conLargo && ValorEntero(r.largo) == 0) {
        Decir(Falta::Clase::LargoInvalido, palabra, palabra.texto);
        return;
    }
    if (dato == nullptr || dato->largo == largoDesconocido || dato->abierto) return;
    if (std::string_view("CNDTXu").find(dato->tipo) == std::string_view::npos) return;
    const bool conDesplazamiento = EsEntero(r.desplazamiento);
    if (r.tieneDesplazamiento && !conDesplazamiento) return;
    const int desde = conDesplazamiento ? ValorEntero(r.desplazamiento) : 0;
    const int cantidad = conLargo ? ValorEntero(r.largo) : 1;
    if (desde + cantidad > dato->largo) Decir(Falta::Clase::FueraDelCampo, palabra, palabra.texto);
}

const Dato* Frase::Revisar(const Palabra& palabra) {
    if (EsSimboloDeCampo(palabra.texto) || EsDeObjeto(palabra.texto)) return nullptr;
    const auto r = LeerReferencia(palabra);
    if (!r) return nullptr;
    const Dato* dato = contexto_.datos.Buscar(palabra.base);
    if (dato == nullptr) dato = SinDeclarar(palabra, *r);
    if (dato != nullptr && r->tieneComponente) {
        bool ajeno = false;
        const bool deTexto = palabra.base == "TEXT"_c && r->componentes.size() == 3;
        const Dato* componente = deTexto ? nullptr : BuscarComponentes(contexto_.datos, *dato, r->componentes, ajeno);
        if (ajeno && !contexto_.perdidas.contains(palabra.base)) {
            Decir(Falta::Clase::ComponenteAjeno, palabra, SinTrozo(palabra.texto));
        }
        dato = componente;
    }
    if (r->tieneDesplazamiento || r->tieneLargo) RevisarTrozo(palabra, *r, dato);
    return dato;
}

// Whether the name can't be another one here than the one that is known: nothing that wasn't read may have declared it.
bool Frase::EsSegura(const Palabra& palabra) const {
    return !contexto_.incierto && !contexto_.enPantalla && !contexto_.perdidas.contains(palabra.base);
}

void Frase::RevisarDestino(const Palabra& palabra) {
    if (palabra.EsLiteral() || palabra.largoBase == 0 || EsSimboloDeCampo(palabra.texto) || EsDeObjeto(palabra.texto)) return;
    const Dato* dato = contexto_.datos.Buscar(palabra.base);
    if (dato == nullptr || !dato->constante || !EsSegura(palabra)) return;
    Decir(Falta::Clase::ConstanteCambiada, palabra, palabra.texto.substr(0, palabra.largoBase));
}

// `dato` is what the word stands for.
bool Frase::EsOtraQueTabla(const Palabra& palabra, const Dato* dato) const {
    const Dato* base = contexto_.datos.Buscar(palabra.base);
    if (dato == nullptr || base == nullptr || base->formal || !EsSegura(palabra)) return false;
    if (base->linea == 0) return base->registro != sinRegistro;  // the fields of the system
    return !dato->tabla && !dato->abierto && dato->tipo != '?' && dato->tipo != 'r';
}

void Frase::RevisarComponente(const Palabra& palabra) {
    if (palabra.EsLiteral() || EsSimboloDeCampo(palabra.texto) || EsDeObjeto(palabra.texto)) return;
    const Dato* dato = contexto_.datos.Buscar(palabra.base);
    if (dato == nullptr || dato->linea == 0 || dato->registro == sinRegistro || !EsSegura(palabra)) return;
    const auto r = LeerReferencia(palabra);
    if (!r || !r->tieneComponente || contexto_.datos.Buscar(ClaveDe(SinTrozo(palabra.texto))) != nullptr) return;
    bool ajeno = false;
    BuscarComponentes(contexto_.datos, *dato, r->componentes, ajeno);
    if (ajeno) Decir(Falta::Clase::ComponenteAjeno, palabra, SinTrozo(palabra.texto));
}

bool Frase::Nombre(bool puedeEscribirse) {
    const Palabra& palabra = Actual();
    if (EsSigno(palabra)) return Falla(Falta::Clase::NoEsSentencia);
    if (palabra.largoBase == 0 && !puedeEscribirse) {
        // A sign in front of a name.
        Avanzar();
        return true;
    }
    if (!EsSimboloDeCampo(palabra.texto) && !EsDeObjeto(palabra.texto) && !LeerReferencia(palabra)) {
        const auto r = palabra.texto.find('(');
        return Falla(r == std::string_view::npos || r == 0 ? Falta::Clase::NoEsSentencia : Falta::Clase::LargoInvalido);
    }
    Revisar(palabra);
    Avanzar();
    return true;
}

bool Frase::Operando() {
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    const Palabra& palabra = Actual();
    if (palabra.EsLiteral()) {
        Avanzar();
        while (Es("&"_c) && Hay(1) && Mirar(1).EsLiteral()) Avanzar(2);
        return true;
    }
    if (EsNumero(palabra.texto)) {
        Avanzar();
        return true;
    }
    return Nombre(false);
}

bool Frase::Variable() {
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    if (Actual().EsLiteral() || EsNumero(Actual().texto)) return Falla(Falta::Clase::NoEsSentencia);
    return Nombre(true);
}

bool Frase::Destino() {
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    const Palabra& palabra = Actual();
    if (!Variable()) return false;
    RevisarDestino(palabra);
    return true;
}

bool Frase::Tabla(const Dato*& linea) {
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    const Palabra& palabra = Actual();
    if (!Variable()) return false;
    // A second look tells no second fault.
    linea = Revisar(palabra);
    if (EsOtraQueTabla(palabra, linea)) Decir(Falta::Clase::NoEsTabla, palabra, SinTrozo(palabra.texto));
    return true;
}

bool Frase::Operandos(std::initializer_list<Clave> hasta) {
    if (!Operando()) return false;
    while (Hay() && !EsAlguna(hasta)) {
        if (!Operando()) return false;
    }
    return true;
}

bool Frase::Componente(const Dato* linea) {
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    const Palabra& palabra = Actual();
    if (palabra.EsLiteral() || (EsSigno(palabra) && palabra.texto.front() != '(')) return Falla(Falta::Clase::NoEsSentencia);
    Avanzar();
    if (linea == nullptr || linea->registro == sinRegistro || palabra.largoBase == 0) return true;
    if (palabra.base == "TABLE_LINE"_c || palabra.base == "TABLE"_c || EsSimboloDeCampo(palabra.texto)) return true;
    const auto nombre = SinTrozo(palabra.texto);
    bool ajeno = false;
    const Dato* componente = BuscarComponentes(contexto_.datos, *linea, nombre, ajeno);
    if (ajeno && !contexto_.perdidas.contains(linea->clave)) Decir(Falta::Clase::ComponenteAjeno, palabra, nombre);
    if (const auto r = LeerReferencia(palabra); r && (r->tieneDesplazamiento || r->tieneLargo))
        RevisarTrozo(palabra, *r, componente);
    return true;
}

}  // namespace qor::abap

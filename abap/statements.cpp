#include "abap/statements.h"

#include <algorithm>
#include <iterator>

#include "abap/keywords.h"
#include "abap/names.h"

namespace qor::abap {

namespace {

// Words in front of colons that are repeated in one chain. The pieces behind are not looked at.
constexpr std::size_t maximoDeRepetidas = 1000000;

// A longer word is no name with a point in it.
constexpr std::size_t maximoDePegada = 100;

bool Es(const Palabra* palabra, Clave clave) { return palabra != nullptr && palabra->clave == clave; }

bool EsPunto(const Palabra* palabra) { return palabra != nullptr && palabra->tipo == Palabra::Tipo::Punto; }

bool EsDosPuntos(const Palabra* palabra) { return palabra != nullptr && palabra->tipo == Palabra::Tipo::DosPuntos; }

bool EsNombre(const Palabra* palabra) { return palabra != nullptr && palabra->tipo == Palabra::Tipo::Nombre; }

bool EsValor(const Palabra* palabra) { return EsNombre(palabra) || (palabra != nullptr && palabra->EsLiteral()); }

bool EsAsignacion(const Palabra* palabra) { return Es(palabra, "="_c) || Es(palabra, "?="_c); }

bool EsOperador(Clave clave) {
    switch (clave) {
        case "="_c:
        case "?="_c:
        case "+"_c:
        case "-"_c:
        case "*"_c:
        case "/"_c:
        case "**"_c:
        case "("_c:
        case "DIV"_c:
        case "MOD"_c: return true;
        default: return false;
    }
}

// Commas within brackets belong to the statement.
bool TieneListas(Clave cabeza) {
    switch (cabeza) {
        case "SELECT"_c:
        case "DELETE"_c:
        case "UPDATE"_c:
        case "OPEN"_c:
        case "FETCH"_c:
        case "MODIFY"_c:
        case "INSERT"_c: return true;
        default: return false;
    }
}

// A word of a declaration behind a name.
bool SigueADeclarado(const Palabra* palabra) {
    return Es(palabra, "TYPE"_c) || Es(palabra, "LIKE"_c) || Es(palabra, "VALUE"_c) || Es(palabra, "OCCURS"_c);
}

// Statements in which no "=" can stand behind a second name.
bool EsSinIgual(Clave cabeza) {
    switch (cabeza) {
        case "MOVE"_c:
        case "CLEAR"_c:
        case "APPEND"_c:
        case "PERFORM"_c:
        case "REFRESH"_c:
        case "CONCATENATE"_c:
        case "SHIFT"_c:
        case "TRANSLATE"_c:
        case "CONDENSE"_c:
        case "EXIT"_c:
        case "ELSE"_c:
        case "ENDIF"_c:
        case "ENDCASE"_c:
        case "ENDLOOP"_c:
        case "ENDDO"_c:
        case "WHEN"_c:
        case "CASE"_c: return true;
        default: return false;
    }
}

bool TerminaBloque(Clave palabra) {
    switch (palabra) {
        case "ELSE"_c:
        case "ENDIF"_c:
        case "ENDCASE"_c:
        case "ENDDO"_c:
        case "ENDWHILE"_c:
        case "ENDLOOP"_c:
        case "ENDSELECT"_c:
        case "ENDFORM"_c:
        case "ENDAT"_c:
        case "ENDEXEC"_c:
        case "START-OF-SELECTION"_c:
        case "END-OF-SELECTION"_c:
        case "INITIALIZATION"_c: return true;
        default: return false;
    }
}

}  // namespace

bool LectorDeSentencias::LeerPalabra(Palabra& palabra) {
    if (!hayAdelantada_) return lexico_.Siguiente(palabra);
    palabra = adelantada_;
    hayAdelantada_ = false;
    return true;
}

// A point within the name of a component, where the record goes on behind it: it is one word then, if not a name.
bool LectorDeSentencias::PegarPunto(const Palabra& punto) {
    if (tramo_.empty() || tramo_[0].clave != "DATA"_c || tramo_.back().tipo != Palabra::Tipo::Nombre) return false;
    Palabra& antes = tramo_.back();
    if (antes.texto.data() + antes.texto.size() != punto.texto.data()) return false;
    if (!lexico_.Siguiente(adelantada_)) return false;
    hayAdelantada_ = true;
    const bool pegada = adelantada_.texto.data() == punto.texto.data() + 1;
    if (!pegada || adelantada_.tipo != Palabra::Tipo::Nombre || EsPalabraDeSentencia(adelantada_.clave)) return false;
    if (registrosAbiertos_ <= 0 || antes.texto.size() > maximoDePegada) return false;
    antes.texto = {antes.texto.data(), antes.texto.size() + 1 + adelantada_.texto.size()};
    antes.clave = ClaveDe(antes.texto);
    hayAdelantada_ = false;
    return true;
}

// What a word says of those behind it: of commas within brackets, and of points within a record.
void LectorDeSentencias::Contar(Palabra& palabra) {
    if (palabra.tipo == Palabra::Tipo::Coma && conListas_ && parentesis_ > 0) {
        palabra.tipo = Palabra::Tipo::Nombre;
        palabra.clave = ","_c;
    }
    if (palabra.tipo != Palabra::Tipo::Nombre) return;
    if (palabra.clave == "OF"_c && !tramo_.empty()) {
        registrosAbiertos_ += tramo_.back().clave == "BEGIN"_c ? 1 : tramo_.back().clave == "END"_c ? -1 : 0;
    }
    if (TieneListas(palabra.clave) && (tramo_.empty() || palabra.abreLinea)) conListas_ = true;
    if (!conListas_) return;
    for (const char c : palabra.texto) parentesis_ += c == '(' ? 1 : c == ')' ? -1 : 0;
}

bool LectorDeSentencias::LeerTramo() {
    // Whether the tramo before ended in an open literal: its rest may stand here.
    const int lineaAbierta =
        tramo_.size() > 1 && tramo_[tramo_.size() - 2].tipo == Palabra::Tipo::LiteralAbierto ? tramo_.back().linea : 0;
    tramo_.clear();
    registrosAbiertos_ = parentesis_ = 0;
    conListas_ = false;
    Palabra palabra;
    while (LeerPalabra(palabra)) {
        const bool punto = palabra.tipo == Palabra::Tipo::Punto;
        if (punto && PegarPunto(palabra)) continue;
        Contar(palabra);
        tramo_.push_back(palabra);
        if (punto) break;
    }
    callar_ = lineaAbierta != 0 && !tramo_.empty() && tramo_[0].linea == lineaAbierta + 1 && !EsAsignacion(Tras(0)) &&
              !EsOtraSentencia(0) && EsRestoDeLiteral(0);
    parte_ = finDeParte_ = 0;
    return !tramo_.empty();
}

// Whether there is an odd apostrophe on the line that begins here.
bool LectorDeSentencias::EsRestoDeLiteral(std::size_t i) const {
    for (std::size_t n = i; n < tramo_.size() && tramo_[n].linea == tramo_[i].linea; ++n) {
        if (tramo_[n].tipo == Palabra::Tipo::LiteralAbierto) return true;
    }
    return false;
}

// Whether a statement begins with this word, the first one of its line, behind words that are no statement or behind a literal
// that is open on `lineaAbierta`. The line below that may hold its rest.
bool LectorDeSentencias::EsCorte(std::size_t i, int lineaAbierta) const {
    if (tramo_[i].linea == lineaAbierta + 1 && EsRestoDeLiteral(i)) return EsAsignacion(Tras(i)) || EsOtraSentencia(i);
    return EsComienzoCualquiera(i);
}

// Whether a statement of some kind begins with this word.
bool LectorDeSentencias::EsComienzo(std::size_t i) const {
    const Palabra& palabra = tramo_[i];
    if (palabra.tipo != Palabra::Tipo::Nombre) return palabra.tipo == Palabra::Tipo::Punto;
    if (EsAsignacion(Tras(i)) || EsPalabraDeSentencia(palabra.clave) || conocidos_.EsMacro(palabra.clave)) return true;
    return EsDeObjeto(palabra.texto);
}

// Behind words that are none of a statement the next line that looks like one is one.
bool LectorDeSentencias::EsComienzoCualquiera(std::size_t i) const {
    return tramo_[i].tipo == Palabra::Tipo::Nombre && (tramo_[i].texto.front() == '*' || EsComienzo(i));
}

// Whether another statement begins with this word, the first one of its line, and nothing else can be meant.
bool LectorDeSentencias::EsOtraSentencia(std::size_t i) const {
    const Palabra& palabra = tramo_[i];
    if (palabra.tipo != Palabra::Tipo::Nombre || (i > 0 && tramo_[i - 1].tipo == Palabra::Tipo::DosPuntos)) return false;
    const Palabra* uno = Tras(i);
    const Palabra* dos = Tras(i + 1);
    const Clave antes = i > 0 ? tramo_[i - 1].clave : 0;
    if (EsAsignacion(uno)) {
        if (i == 0 || tramo_[i - 1].tipo == Palabra::Tipo::Coma || EsOperador(antes)) return false;
        // No condition of a table computes.
        if (antes == "WHERE"_c) return Es(Tras(i + 2), "+"_c);
        return EsSinIgual(tramo_[parte_].clave) || EsAsignacion(Tras(parte_));
    }
    if (!EsPalabraDeSentencia(palabra.clave) || SigueADeclarado(uno) || conocidos_.EsDato(palabra.clave)) return false;
    if (TerminaBloque(palabra.clave)) return EsPunto(uno);
    switch (palabra.clave) {
        case "IF"_c:
        case "ELSEIF"_c:
        case "WHILE"_c:
        case "CHECK"_c:
            if (Es(uno, "NOT"_c) || Es(uno, "("_c)) return EsValor(dos);
            return EsValor(uno) && EsNombre(dos) && (EsComparacion(dos->clave) || Es(dos, "IS"_c) || Es(dos, "IN"_c));
        case "CASE"_c: return EsNombre(uno) && EsPunto(dos) && antes != "LOWER"_c && antes != "UPPER"_c;
        case "WHEN"_c: return (uno != nullptr && uno->EsLiteral()) || Es(uno, "OTHERS"_c);
        case "LOOP"_c: return Es(uno, "AT"_c);
        case "SELECT"_c: return antes != "("_c && !TieneListas(tramo_[parte_].clave) && EsNombre(uno) && EsNombre(dos);
        case "CALL"_c: return Es(uno, "FUNCTION"_c) || Es(uno, "TRANSACTION"_c) || Es(uno, "METHOD"_c) || Es(uno, "SCREEN"_c);
        case "READ"_c: return Es(uno, "TABLE"_c) || Es(uno, "DATASET"_c);
        case "OPEN"_c:
        case "CLOSE"_c: return Es(uno, "DATASET"_c);
        case "EXEC"_c: return Es(uno, "SQL"_c);
        case "AT"_c: return Es(uno, "SELECTION-SCREEN"_c) || Es(uno, "NEW"_c);
        case "SELECTION-SCREEN"_c: return Es(uno, "BEGIN"_c) || Es(uno, "END"_c) || Es(uno, "SKIP"_c) || EsDosPuntos(uno);
        case "COMMIT"_c:
        case "ROLLBACK"_c: return Es(uno, "WORK"_c);
        case "FORM"_c:
        case "PERFORM"_c:
            return EsNombre(uno) && (EsPunto(dos) || Es(dos, "USING"_c) || Es(dos, "CHANGING"_c) || Es(dos, "TABLES"_c));
        case "MOVE"_c: return EsDosPuntos(uno) || (EsValor(uno) && Es(dos, "TO"_c));
        case "WRITE"_c: return EsDosPuntos(uno) || Es(uno, "/"_c);
        case "CLEAR"_c:
        case "APPEND"_c:
        case "REFRESH"_c: return EsDosPuntos(uno) || (EsNombre(uno) && EsPunto(dos));
        case "DATA"_c:
        case "PARAMETERS"_c:
        case "CONSTANTS"_c:
        case "STATICS"_c:
        case "TYPES"_c:
        case "RANGES"_c:
        case "SELECT-OPTIONS"_c:
        case "FIELD-SYMBOLS"_c: return EsDosPuntos(uno) || (EsNombre(uno) && (EsPunto(dos) || SigueADeclarado(dos)));
        default: return false;
    }
}

// Finds the end of the part that begins at `parte_`, and its colon.
void LectorDeSentencias::CortarParte() {
    cortada_ = encadenada_ = false;
    bool suelta = !EsComienzo(parte_);
    int lineaAbierta = -1;
    std::size_t i = parte_;
    for (; i < tramo_.size(); ++i) {
        const Palabra& palabra = tramo_[i];
        if (palabra.abreLinea && i > parte_ && (suelta ? EsCorte(i, lineaAbierta) : EsOtraSentencia(i))) {
            cortada_ = true;
            break;
        }
        if (palabra.tipo == Palabra::Tipo::Coma) suelta = false;
        if (palabra.tipo == Palabra::Tipo::LiteralAbierto) {
            suelta = true;
            lineaAbierta = palabra.linea;
        }
        if (palabra.tipo == Palabra::Tipo::DosPuntos && !encadenada_) {
            encadenada_ = true;
            cabeza_ = i - parte_;
        }
    }
    finDeParte_ = i;
    piezas_ = 0;
    pieza_ = encadenada_ ? parte_ + cabeza_ + 1 : parte_;
}

// The words of a piece, behind those in front of the colon.
void LectorDeSentencias::Repartir(std::size_t inicio, std::size_t fin, Sentencia& sentencia) {
    const auto pieza = std::span<const Palabra>(tramo_).subspan(inicio, fin - inicio);
    sentencia.palabras = pieza;
    if (!encadenada_) return;
    const auto cabeza = std::span<const Palabra>(tramo_).subspan(parte_, cabeza_);
    expandida_.assign(cabeza.begin(), cabeza.end());
    std::copy_if(pieza.begin(), pieza.end(), std::back_inserter(expandida_),
                 [](const Palabra& p) { return p.tipo != Palabra::Tipo::DosPuntos; });
    sentencia.palabras = expandida_;
}

void LectorDeSentencias::PonerEstado(bool sinPunto, Sentencia& sentencia) const {
    using Estado = Sentencia::Estado;
    sentencia.estado = Estado::Entera;
    sentencia.donde = nullptr;
    const auto abierto = std::find_if(sentencia.palabras.begin(), sentencia.palabras.end(),
                                      [](const Palabra& p) { return p.tipo == Palabra::Tipo::LiteralAbierto; });
    if (callar_) {
        sentencia.estado = Estado::Perdida;
    } else if (abierto != sentencia.palabras.end()) {
        sentencia.estado = Estado::LiteralAbierto;
        sentencia.donde = &*abierto;
    } else if (sinPunto && EsComienzo(parte_)) {
        sentencia.estado = Estado::SinPunto;
        sentencia.donde = cortada_ ? &tramo_[finDeParte_] : nullptr;
    }
}

bool LectorDeSentencias::Siguiente(Sentencia& sentencia) {
    while (true) {
        if (pieza_ >= finDeParte_) {
            if (finDeParte_ < tramo_.size()) {
                parte_ = finDeParte_;
                callar_ = false;
            } else if (!LeerTramo()) {
                return false;
            }
            CortarParte();
        }
        const std::size_t inicio = leida_ = pieza_;
        std::size_t fin = inicio;
        while (fin < finDeParte_ && !EsMarca(fin, Palabra::Tipo::Coma) && !EsMarca(fin, Palabra::Tipo::Punto)) ++fin;
        const bool sinPunto = fin >= finDeParte_ || (EsMarca(fin, Palabra::Tipo::Coma) && fin + 1 == finDeParte_);
        const bool ultima = sinPunto || EsMarca(fin, Palabra::Tipo::Punto);
        const bool unica = encadenada_ && ultima && inicio == parte_ + cabeza_ + 1;
        pieza_ = ultima ? finDeParte_ : fin + 1;
        if (fin == inicio && !unica) continue;
        if (encadenada_ && cabeza_ * ++piezas_ > maximoDeRepetidas) continue;

        Repartir(inicio, fin, sentencia);
        if (sentencia.palabras.empty()) continue;
        sentencia.primera = fin == inicio ? &tramo_[parte_] : &tramo_[inicio];
        const bool sobraComa = !ultima && !encadenada_ && (fin + 1 >= tramo_.size() || EsComienzo(fin + 1));
        sentencia.comaSuelta = sobraComa ? &tramo_[fin] : nullptr;
        PonerEstado(sinPunto, sentencia);
        return true;
    }
}

bool LectorDeSentencias::Cortar(const Palabra& palabra) {
    if (!palabra.abreLinea) return false;
    // Words stand in the order of the text.
    const auto esAntes = [](const Palabra& una, const Palabra& otra) { return una.texto.data() < otra.texto.data(); };
    const auto lugar = std::lower_bound(tramo_.begin(), tramo_.end(), palabra, esAntes);
    const auto i = static_cast<std::size_t>(lugar - tramo_.begin());
    if (i <= leida_ || i >= finDeParte_ || !EsComienzo(i)) return false;
    finDeParte_ = pieza_ = i;
    return true;
}

}  // namespace qor::abap

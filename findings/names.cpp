#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "base/failure.h"
#include "base/text.h"
#include "findings/program_rows.h"
#include "findings/rules.h"
#include "findings/user_code.h"
#include "model/cells.h"

namespace qor {

namespace {

using Clase = FilaLeida::Clase;

constexpr std::size_t largoDeNombre = 30;
constexpr std::size_t largoDeTablaZ = 16;
constexpr double anchoMaximo = 65535;
constexpr std::string_view forma = "GENERATE_BDC_";
constexpr std::size_t largoFormaBAPI = 26;  // of the code in the name of a BAPI's form
// Bytes to which the code page gives no character.
constexpr std::string_view sinCaracter = "\x81\x8D\x8F\x90\x9D";

// Words that no column of a database table can be called by in its native SQL.
constexpr std::string_view palabrasDeSQL[] = {
    "ADD",    "ALL",     "ALTER",  "AND",     "ANY",    "AS",     "ASC",     "BETWEEN", "BY",       "CHAR",  "CHECK",
    "COLUMN", "CONNECT", "CREATE", "CURRENT", "DATE",   "DELETE", "DESC",    "DECIMAL", "DEFAULT",  "DROP",  "DISTINCT",
    "ELSE",   "EXISTS",  "FLOAT",  "FOR",     "FROM",   "GRANT",  "GROUP",   "HAVING",  "IN",       "INDEX", "INSERT",
    "INTO",   "INTEGER", "IS",     "LEVEL",   "LIKE",   "NOT",    "NULL",    "NUMBER",  "OF",       "ON",    "OPTION",
    "OR",     "ORDER",   "PUBLIC", "ROWS",    "SELECT", "SET",    "SESSION", "SIZE",    "SMALLINT", "TABLE", "THEN",
    "TO",     "UNION",   "UNIQUE", "UPDATE",  "USER",   "VALUES", "VARCHAR", "VIEW",    "WHERE",    "WITH",  "INTERSECT"};

bool EsDigito(char c) { return c >= '0' && c <= '9'; }
bool EsLetra(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool ValeEnNombre(char c) { return EsLetra(c) || EsDigito(c) || std::string_view("_%$&#?/").find(c) != std::string_view::npos; }

// A FORM may have hyphens in its name, as in FORM TOP-OF-PAGE, and no part in the middle that is a name space.
bool ValeEnForma(char c) { return c == '-' || (c != '/' && ValeEnNombre(c)); }

// The first character for which `vale` is false; empty when there is none.
template <typename Prueba>
std::string_view PrimeroQueNo(std::string_view texto, Prueba vale) {
    const auto lugar = std::find_if_not(texto.begin(), texto.end(), vale);
    return lugar == texto.end() ? std::string_view{} : texto.substr(static_cast<std::size_t>(lugar - texto.begin()), 1);
}

bool EsDePalabras(std::string_view nombre) {
    return std::any_of(std::begin(palabrasDeSQL), std::end(palabrasDeSQL), [&](auto palabra) { return Es(nombre, palabra); });
}

// Between apostrophes, a run of an odd number of them ends the literal.
bool CierraLiteral(std::string_view texto) {
    for (auto i = texto.find('\''); i != std::string_view::npos; i = texto.find('\'', i)) {
        const auto fin = std::min(texto.find_first_not_of('\'', i), texto.size());
        if ((fin - i) % 2 != 0) return true;
        i = fin;
    }
    return false;
}

// The input is read by native SQL: main records, and those of step-loops.
bool LeeTabla(const Generacion& c) { return !c.EntradaDeArchivo() && !c.especificacion.OrigenUsuario; }
bool LeeTablasDeSteps(const Generacion& c) { return c.opciones.EntradaDeTabla(); }

class DeCampos {
public:
    DeCampos(const Generacion& g, Libreta& libreta, const std::vector<StepLoop>& stepLoops)
        : c_(g), libreta_(libreta), stepLoops_(stepLoops), campos_(g.especificacion.FilasArchivo()) {}

    void Buscar() {
        std::unordered_map<std::string, int> primeros;
        for (int f = 0; f < campos_; ++f) {
            const auto& fila = c_.especificacion.TablaArchivo[f];
            BuscarEnNombre(f, fila.campo);
            BuscarEnAncho(f, fila.ancho);
            const auto [lugar, nuevo] = primeros.try_emplace(Mayusculas(Recortar(fila.campo)), f);
            if (!nuevo && EnUnRegistro(lugar->second, f)) {
                libreta_.Agregar(327, Lugar::EnArchivo(f, 0), {fila.campo, libreta_.NumeroDeFila(lugar->second)});
            }
            if (LeeTabla(c_) && EsDePalabras(fila.campo)) libreta_.Agregar(323, Lugar::EnArchivo(f, 0), {fila.campo}, 2);
        }
        if (!c_.analisis.HayStepSinClave && !LeeTablasDeSteps(c_)) BuscarEnClaves();
    }

private:
    void BuscarEnNombre(int f, const std::string& campo) {
        const auto nombre = std::string_view(campo).substr(std::min(campo.find_first_not_of(' '), campo.size()));
        const auto lugar = Lugar::EnArchivo(f, 0);
        const auto malo = PrimeroQueNo(nombre, ValeEnNombre);
        if (!malo.empty()) {
            libreta_.Agregar(314, lugar, {campo, malo}, malo == " " ? 1 : 0);
        } else if (EsDigito(nombre.front())) {
            libreta_.Agregar(314, lugar, {campo}, 2);
        } else if (nombre.size() > largoDeNombre) {
            libreta_.Agregar(314, lugar, {campo, std::to_string(nombre.size())}, 3);
        } else if (c_.analisis.ArchivoUnico && c_.analisis.HayStepSinClave && Es(nombre, "AUTOCOUNTER")) {
            libreta_.Agregar(314, lugar, {campo}, 4);
        }
        if (EsUnaDe(nombre, {"BEGIN", "END", "INCLUDE"})) libreta_.Agregar(323, lugar, {campo}, 0);
    }

    void BuscarEnAncho(int f, const std::string& ancho) {
        if (ancho.empty()) return;
        const bool cifras = std::all_of(ancho.begin(), ancho.end(), EsDigito);
        if (cifras && Numero(ancho) >= 1 && Numero(ancho) <= anchoMaximo) return;
        libreta_.Agregar(326, Lugar::EnArchivo(f, 1), {ancho, c_.especificacion.TablaArchivo[f].campo});
    }

    ClaseCampo ClaseEn(int f, int n) const {
        try {
            return c_.analisis.operaciones.ClaseCampoEnOperacion(c_.especificacion.TablaArchivo[f].campo, n);
        } catch (const FalloDeEjecucion&) {
            return ClaseCampo::Ninguna;
        }
    }

    // Record 0 is the main one.
    bool EnRegistro(int f, int n) const {
        const auto clase = ClaseEn(f, n == 0 ? 1 : n);
        if (n == 0) return clase == ClaseCampo::Ninguna || clase == ClaseCampo::Clave;
        return clase == ClaseCampo::DelGrupo || (clase == ClaseCampo::Clave && !LeeTablasDeSteps(c_));
    }

    bool EnUnRegistro(int f, int otra) const {
        const auto& tabla = c_.especificacion.TablaArchivo;
        if (tabla[f].campo == tabla[otra].campo) return true;
        for (int n = 0; n <= static_cast<int>(stepLoops_.size()); ++n) {
            if (EnRegistro(f, n) && EnRegistro(otra, n)) return true;
        }
        return false;
    }

    // A key stands on the left side of a WHERE.
    void BuscarEnClaves() {
        for (int f = 0; f < campos_; ++f) {
            const std::string& campo = c_.especificacion.TablaArchivo[f].campo;
            if (!EsUnaDe(campo, {"NOT", "AND", "OR", "BETWEEN", "IN", "IS", "LIKE"})) continue;
            const bool esClave = std::any_of(stepLoops_.begin(), stepLoops_.end(), [&](const StepLoop& stepLoop) {
                return ClaseEn(f, stepLoop.numero) == ClaseCampo::Clave;
            });
            if (esClave) libreta_.Agregar(323, Lugar::EnArchivo(f, 0), {campo}, 1);
        }
    }

    const Generacion& c_;
    Libreta& libreta_;
    const std::vector<StepLoop>& stepLoops_;
    int campos_;
};

// Step-loops that read columns of their own table.
void BuscarColumnasDeSteps(const Generacion& c, Libreta& libreta, const std::vector<StepLoop>& stepLoops) {
    if (!LeeTablasDeSteps(c) || stepLoops.empty()) return;
    const int campos = c.especificacion.FilasArchivo();
    for (int f = 0; f < campos; ++f) {
        const std::string& campo = c.especificacion.TablaArchivo[f].campo;
        // What is read as a column of the main table too has been told.
        if (LeeTabla(c) || !EsDePalabras(campo)) continue;
        const bool esClave = std::any_of(stepLoops.begin(), stepLoops.end(), [&](const StepLoop& stepLoop) {
            const auto claves = stepLoop.NombresDeClaves();
            return std::find(claves.begin(), claves.end(), campo) != claves.end();
        });
        if (esClave || c.analisis.operaciones.OperacionDeCampo(campo) != 0) {
            libreta.Agregar(323, Lugar::EnArchivo(f, 0), {campo}, 2);
        }
    }
}

// The code of an operation in the name of its form, and as the text that is called.
void BuscarEnCabeza(const Generacion& c, Libreta& libreta, int r, const FilaLeida& leida) {
    const auto lugar = Lugar::EnPrograma(r, 1);
    const std::string& celda = c.especificacion.TablaTransaccion[r].dynpro;
    const auto codigo = Recortar(AntesDe(celda, ';'));
    const bool cierra = !leida.esBAPI && CierraLiteral(codigo);
    if (cierra || CierraLiteral(DespuesDe(celda, ';'))) libreta.Agregar(328, lugar, {celda});
    if (codigo.empty() && !leida.esBAPI) libreta.Agregar(427, lugar);
    const auto enForma = leida.esBAPI ? codigo.substr(0, largoFormaBAPI) : codigo;
    const auto malo = PrimeroQueNo(enForma, [&](char caracter) { return ValeEnForma(caracter) || (cierra && caracter == '\''); });
    const std::string numero = std::to_string(leida.operacion);
    if (!malo.empty()) libreta.Agregar(307, lugar, {codigo, malo}, malo == " " ? 1 : leida.esBAPI ? 2 : 0);
    if (leida.esBAPI) return;
    const std::string nombre = std::string(forma) + std::string(codigo) + "_" + numero;
    if (nombre.size() <= largoDeNombre) return;
    const auto cabe = largoDeNombre - forma.size() - 1 - numero.size();
    libreta.Agregar(306, lugar, {codigo, nombre, std::to_string(cabe)});
}

bool EsConstanteOVariable(std::string_view valor) { return !valor.empty() && (valor.front() == '\'' || valor.front() == '@'); }

void BuscarEnCampo(const Generacion& c, Libreta& libreta, int r, const FilaLeida& leida) {
    const auto& fila = c.especificacion.TablaTransaccion[r];
    const auto lugar = Lugar::EnPrograma(r, 2);
    const bool enStep = c.analisis.operaciones.FilaEnStepLoop(r);
    const bool conLinea = Contiene(fila.campo, "(");
    const auto condicion = DespuesDe(fila.campo, ';');
    if (enStep && !conLinea) return;
    const auto nombre = AntesDe(fila.campo, enStep ? '(' : ';');
    if (leida.esBAPI ? Contiene(nombre, "'") : CierraLiteral(nombre)) {
        libreta.Agregar(328, lugar, {fila.campo});
        return;
    }
    const bool palabraSuelta = leida.esBAPI && !enStep && EsConstanteOVariable(fila.valor);
    if (palabraSuelta && !EstaEnBlanco(condicion)) {
        libreta.Agregar(305, lugar, {fila.campo, condicion, fila.valor});
    } else if (CierraLiteral(condicion)) {
        libreta.Agregar(328, lugar, {fila.campo});
    }
}

// A variable whose name is a clause of the statement that it is put into.
void BuscarVariable(const Generacion& c, Libreta& libreta, int r, const FilaLeida& leida) {
    const std::string& valor = c.especificacion.TablaTransaccion[r].valor;
    if (!EsVariable(valor)) return;
    const auto nombre = std::string_view(valor).substr(1);
    const bool choca = leida.esBAPI ? Es(nombre, "TO") : EsUnaDe(nombre, {"USING", "CHANGING", "TABLES"});
    if (choca) libreta.Agregar(323, Lugar::EnPrograma(r, 3), {nombre}, 3);
}

void BuscarEnPrograma(const Generacion& c, Libreta& libreta, const std::vector<FilaLeida>& filas) {
    for (std::size_t i = 0; i < filas.size(); ++i) {
        const int r = static_cast<int>(i);
        const auto& fila = c.especificacion.TablaTransaccion[r];
        if (filas[i].clase == Clase::Cabeza) {
            BuscarEnCabeza(c, libreta, r, filas[i]);
        } else if (filas[i].clase == Clase::Campo) {
            BuscarEnCampo(c, libreta, r, filas[i]);
            BuscarVariable(c, libreta, r, filas[i]);
        } else if (!filas[i].esBAPI) {
            if (CierraLiteral(fila.programa)) libreta.Agregar(328, Lugar::EnPrograma(r, 0), {fila.programa});
            const bool enDynpro = CierraLiteral(AntesDe(fila.dynpro, ';')) || CierraLiteral(DespuesDe(fila.dynpro, ';'));
            if (enDynpro) libreta.Agregar(328, Lugar::EnPrograma(r, 1), {fila.dynpro});
        }
    }
    std::unordered_set<std::string_view> condiciones;
    for (int r = 0; r < filasTabla && !c.especificacion.TablaCondiciones[r].nombre.empty(); ++r) {
        const std::string& nombre = c.especificacion.TablaCondiciones[r].nombre;
        if (!condiciones.insert(nombre).second) libreta.Agregar(428, Lugar::EnCondicion(r, 0), {nombre});
        if (CierraLiteral(nombre)) libreta.Agregar(328, Lugar::EnCondicion(r, 0), {nombre});
    }
}

// Names that the language has given to something else.
void BuscarDeclaraciones(Libreta& libreta, Lugar::Parte parte, const std::string& texto) {
    const SentenciasABAP sentencias(texto);
    for (std::size_t n = 0; n < sentencias.size(); ++n) {
        const auto sentencia = sentencias[n];
        if (sentencia.size() < 2 || !EsUnaDe(sentencia[0].texto, {"DATA", "PARAMETERS", "CONSTANTS", "STATICS"})) continue;
        const auto nombre = NombreEn(sentencia[1].texto);
        if (!EsUnaDe(nombre, {"SPACE", "SY", "SYST"})) continue;
        libreta.Agregar(323, Lugar::EnTexto(parte, sentencia[1].linea), {nombre}, 4);
    }
}

// Options in literals of the report, and in its code.
class DeOpciones {
public:
    DeOpciones(const Generacion& g, Libreta& libreta, const std::vector<StepLoop>& stepLoops)
        : c_(g), o_(g.opciones), libreta_(libreta), stepLoops_(stepLoops) {}

    void Buscar() {
        BuscarSesion();
        BuscarArchivos();
        const bool conCodigo = c_.analisis.operaciones.HayTransaccion && !o_.ProcesarTodoOpt;
        if (conCodigo && CierraLiteral(Recortar(o_.SpaceCode))) Cierra(Lugar::EnOpcion("SpaceCode"), o_.SpaceCode);
        if (c_.analisis.ArchivoUnico) BuscarIdentificadores();
        if (c_.analisis.ManejoErrores) {
            BuscarTablaZ(Recortar(o_.TablaZ));
            if (std::count(o_.ProgID.begin(), o_.ProgID.end(), '\'') % 2 != 0) Cierra(Lugar::EnOpcion("ProgID"), o_.ProgID);
        }
        if (c_.EntradaDeArchivo() && o_.ServidorOp()) BuscarAdiciones();
        const bool sinPrefijo = c_.analisis.ArchivoUnico && !c_.analisis.HayStepSinClave && !c_.nombres.GTprefijo.empty();
        if (sinPrefijo)
            libreta_.Agregar(325, Lugar::EnPreferencia("CheckActivateNamingConventions"), {c_.nombres.GTprefijo + "ITABSL_1"});
    }

private:
    void Cierra(const Lugar& lugar, std::string_view texto, int variante = 0) { libreta_.Agregar(312, lugar, {texto}, variante); }

    void BuscarSesion() {
        if (!c_.analisis.HayJuegoDatos) return;
        const bool propio = o_.GeneracionManual() && !EstaEnBlanco(o_.NombreManual);
        const std::string& nombre = propio ? o_.NombreManual : c_.valores.NombreGrupo;
        if (CierraLiteral(nombre)) Cierra(Lugar::EnOpcion("NombreManual"), nombre, propio ? 0 : 1);
    }

    void BuscarArchivos() {
        const auto fuente = Recortar(o_.ArchivoFuente);
        const bool deArchivo = c_.EntradaDeArchivo();
        const bool enLiteral = deArchivo && (o_.FileParameterCh == 0 || o_.FileParameterCh == 1) && CierraLiteral(fuente);
        if (enLiteral) Cierra(Lugar::EnOpcion("ArchivoFuente"), fuente);
        if (LeeTabla(c_)) BuscarTabla(fuente, Lugar::EnOpcion("ArchivoFuente"));
        const bool porParametro = deArchivo && o_.FileParameterCh == 1 && !c_.analisis.ArchivoUnico;
        for (const auto& stepLoop : stepLoops_) {
            const auto lugar = Lugar::EnPrograma(stepLoop.fila, 4);
            if (porParametro && CierraLiteral(stepLoop.archivo)) Cierra(lugar, stepLoop.archivo, 2);
            if (LeeTablasDeSteps(c_)) BuscarTabla(Recortar(stepLoop.archivo), lugar);
        }
    }

    // What native SQL reads from, with an owner or an alias where it has one.
    void BuscarTabla(std::string_view tabla, const Lugar& lugar) {
        const auto vale = [](char c) {
            return EsLetra(c) || EsDigito(c) || std::string_view("_$#@./\" ").find(c) != std::string_view::npos;
        };
        if (!PrimeroQueNo(tabla, vale).empty()) libreta_.Agregar(330, lugar, {tabla});
    }

    void BuscarIdentificadores() {
        for (std::size_t n = 0; n <= stepLoops_.size(); ++n) {
            if (!CierraLiteral(ObtenerIdentificador(o_.Identificadores, static_cast<int>(n)))) continue;
            Cierra(Lugar::EnOpcion("Identificadores"), o_.Identificadores);
            return;
        }
    }

    void BuscarTablaZ(std::string_view tabla) {
        const auto lugar = Lugar::EnOpcion("TablaZ");
        if (tabla.empty()) return;
        if (Contiene(tabla, "'")) return Cierra(lugar, tabla, 3);
        const auto malo = PrimeroQueNo(tabla, [](char c) { return EsLetra(c) || EsDigito(c) || c == '_' || c == '/'; });
        const bool deEspacio = tabla.size() > 2 && tabla.front() == '/' && tabla.find('/', 2) != std::string_view::npos;
        const char primera = static_cast<char>(Mayuscula(static_cast<unsigned char>(tabla.front())));
        if (!malo.empty()) {
            auto& hallazgo = libreta_.Agregar(324, lugar, {tabla, malo}, 0);
            if (!ValeEnNombre(malo.front())) hallazgo.gravedad = Gravedad::Error;  // no statement can name it
        } else if (tabla.size() > largoDeTablaZ) {
            auto& hallazgo = libreta_.Agregar(324, lugar, {tabla}, 1);
            if (tabla.size() > largoDeNombre) hallazgo.gravedad = Gravedad::Error;
        } else if (!deEspacio && primera != 'Z' && primera != 'Y') {
            libreta_.Agregar(324, lugar, {tabla}, 2);
        } else if (!deEspacio && Contiene(tabla.substr(0, 3), "_")) {
            libreta_.Agregar(324, lugar, {tabla}, 3);
        }
    }

    void BuscarAdiciones();

    const Generacion& c_;
    const Opciones& o_;
    Libreta& libreta_;
    const std::vector<StepLoop>& stepLoops_;
};

// Number of words of the addition of OPEN DATASET ... IN TEXT MODE that the words begin with; 0 for none.
std::size_t LargoDeAdicion(std::span<const Palabra> palabras) {
    const auto es = [&](std::size_t i, std::initializer_list<std::string_view> unas) {
        return i < palabras.size() && EsUnaDe(palabras[i].texto, unas);
    };
    const bool hayOperando = palabras.size() > 1;
    if (es(0, {"ENCODING"}) && es(1, {"DEFAULT", "UTF-8", "NON-UNICODE"})) return 2;
    if (es(0, {"SKIPPING", "WITH"}) && es(1, {"BYTE-ORDER"}) && es(2, {"MARK"})) return 3;
    if (es(0, {"WITH"}) && es(1, {"NATIVE", "SMART", "UNIX", "WINDOWS"}) && es(2, {"LINEFEED"})) return 3;
    if (es(0, {"IGNORING"}) && es(1, {"CONVERSION"}) && es(2, {"ERRORS"})) return 3;
    if (es(0, {"BIG", "LITTLE"}) && es(1, {"ENDIAN"})) return 2;
    if (es(0, {"REPLACEMENT"}) && es(1, {"CHARACTER"}) && palabras.size() > 2) return 3;
    if (es(0, {"CODE"}) && es(1, {"PAGE"}) && palabras.size() > 2) return 3;
    if (es(0, {"AT"}) && es(1, {"POSITION"}) && palabras.size() > 2) return 3;
    if (es(0, {"MESSAGE", "TYPE", "FILTER"}) && hayOperando) return 2;
    return 0;
}

// The point that ends the statement is the last thing on the line, but for blanks and a comment.
bool TerminaEnPunto(std::string_view texto) {
    bool punto = false;
    bool enLiteral = false;
    for (const char c : texto) {
        if (c == '\'') enLiteral = !enLiteral;
        if (!enLiteral && c == '"') break;
        if (c != ' ') punto = c == '.' && !enLiteral;
    }
    return punto;
}

void DeOpciones::BuscarAdiciones() {
    const std::string& texto = c_.preferencias.AdicionesDataset;
    if (texto == "NONE") return;
    const auto lugar = Lugar::EnPreferencia("EncodingAdditional");
    if (!TerminaEnPunto(texto)) {
        libreta_.Agregar(310, lugar, {texto}, 0);
        return;
    }
    const std::string enLaLinea = " " + texto;
    const SentenciasABAP sentencias(enLaLinea);
    if (sentencias.size() == 0) return;
    for (auto palabras = sentencias[0]; !palabras.empty();) {
        const auto largo = LargoDeAdicion(palabras);
        if (largo == 0) {
            const bool empiezaBien =
                EsUnaDe(palabras.front().texto, {"ENCODING", "IGNORING", "SKIPPING", "WITH", "REPLACEMENT", "CODE"});
            const auto mala = empiezaBien && palabras.size() > 1 ? palabras[1].texto : palabras.front().texto;
            libreta_.Agregar(310, lugar, {texto, mala}, 1);
            return;
        }
        palabras = palabras.subspan(largo);
    }
}

// Characters that no code page of a system knows.
class DeCaracteres {
public:
    explicit DeCaracteres(Libreta& libreta) : libreta_(libreta) {}

    void Buscar(std::string_view texto, const Lugar& lugar) {
        const auto caracter = std::find_if(texto.begin(), texto.end(), FaltaCaracter);
        if (caracter != texto.end()) Agregar(*caracter, lugar);
    }

    // Of a text, each line.
    template <typename LugarDeLinea>
    void BuscarEnLineas(std::string_view texto, LugarDeLinea lugar) {
        if (std::none_of(texto.begin(), texto.end(), FaltaCaracter)) return;
        PorCadaLinea(texto, [&](std::string_view linea, int numero) { Buscar(linea, lugar(numero)); });
    }

private:
    static bool FaltaCaracter(char c) {
        return (static_cast<unsigned char>(c) & 0x80U) != 0 && sinCaracter.find(c) != std::string_view::npos;
    }

    void Agregar(char caracter, const Lugar& lugar) {
        constexpr std::string_view cifras = "0123456789ABCDEF";
        const auto codigo = static_cast<unsigned char>(caracter);
        libreta_.Agregar(329, lugar, {std::string{cifras[codigo / 16U], cifras[codigo % 16U]}});
    }

    Libreta& libreta_;
};

template <typename Registro>
void BuscarEnOpciones(DeCaracteres& busqueda, const Registro& registro,
                      std::initializer_list<std::pair<std::string Registro::*, const char*>> textos) {
    for (const auto& [texto, nombre] : textos) {
        const bool deDocumento = std::is_same_v<Registro, Opciones>;
        busqueda.Buscar(registro.*texto, deDocumento ? Lugar::EnOpcion(nombre) : Lugar::EnPreferencia(nombre));
    }
}

void BuscarCaracteres(const Generacion& c, Libreta& libreta) {
    using Parte = Lugar::Parte;
    DeCaracteres busqueda(libreta);
    const auto& e = c.especificacion;
    for (int r = 0; r < filasTabla; ++r) {
        for (int k = 0; k < 3; ++k)
            busqueda.Buscar(e.TablaArchivo[r].*columnasDeArchivo[static_cast<std::size_t>(k)], Lugar::EnArchivo(r, k));
        busqueda.BuscarEnLineas(e.TablaArchivo[r].conversion, [&](int linea) { return Lugar::EnArchivo(r, 3, linea); });
        for (int k = 0; k < 5; ++k) {
            busqueda.Buscar(e.TablaTransaccion[r].*columnasDeTransaccion[static_cast<std::size_t>(k)], Lugar::EnPrograma(r, k));
        }
        busqueda.Buscar(e.TablaCondiciones[r].nombre, Lugar::EnCondicion(r, 0));
        busqueda.BuscarEnLineas(e.TablaCondiciones[r].texto, [&](int linea) { return Lugar::EnCondicion(r, 1, linea); });
    }
    for (int r = 0; r < filasTablaBAPIs; ++r) {
        busqueda.Buscar(e.TablaBAPIs[r].nombre, Lugar::EnBAPI(r, 0));
        busqueda.BuscarEnLineas(e.TablaBAPIs[r].llamada, [&](int linea) { return Lugar::EnBAPI(r, 1, linea); });
    }
    for (const auto& [parte, texto] :
         {std::pair{Parte::VariablesGlobales, &e.VariablesGlobales}, std::pair{Parte::OrigenVariables, &e.OrigenVariables},
          std::pair{Parte::OrigenForms, &e.OrigenForms}, std::pair{Parte::OrigenSource, &e.OrigenSource}}) {
        busqueda.BuscarEnLineas(*texto, [donde = parte](int linea) { return Lugar::EnTexto(donde, linea); });
    }
    BuscarEnOpciones(busqueda, c.opciones,
                     {{&Opciones::ArchivoFuente, "ArchivoFuente"},
                      {&Opciones::Identificadores, "Identificadores"},
                      {&Opciones::NombreManual, "NombreManual"},
                      {&Opciones::SpaceCode, "SpaceCode"},
                      {&Opciones::TablaZ, "TablaZ"},
                      {&Opciones::ProgID, "ProgID"},
                      {&Opciones::Functional, "Functional"},
                      {&Opciones::Technical, "Technical"},
                      {&Opciones::Description, "Description"},
                      {&Opciones::Notes, "Notes"},
                      {&Opciones::DescripcionStatus, "DescripcionStatus"},
                      {&Opciones::ModuleCombo, "ModuleCombo"},
                      {&Opciones::PrioridadCombo, "PrioridadCombo"}});
    BuscarEnOpciones(busqueda, c.preferencias, {{&Preferencias::AdicionesDataset, "EncodingAdditional"}});
}

}  // namespace

void ReglasDeNombres(const Generacion& g, Libreta& libreta) {
    const auto filas = LeerFilas(g.especificacion);
    const auto stepLoops = LeerStepLoops(g.especificacion, filas);
    DeCampos(g, libreta, stepLoops).Buscar();
    BuscarColumnasDeSteps(g, libreta, stepLoops);
    BuscarEnPrograma(g, libreta, filas);
    BuscarDeclaraciones(libreta, Lugar::Parte::VariablesGlobales, g.especificacion.VariablesGlobales);
    if (g.especificacion.OrigenUsuario) {
        BuscarDeclaraciones(libreta, Lugar::Parte::OrigenVariables, g.especificacion.OrigenVariables);
    }
    DeOpciones(g, libreta, stepLoops).Buscar();
    BuscarCaracteres(g, libreta);
}

}  // namespace qor

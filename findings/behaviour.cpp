#include <algorithm>
#include <array>
#include <optional>
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
using Parte = Lugar::Parte;

constexpr double largoDeValor = 132;  // of what a screen takes
constexpr std::size_t largoDeSesion = 12;
constexpr int anchoDeLlamada = 69;

bool EsCondicional(const Palabra& palabra) { return EsUnaDe(palabra.texto, {"IF", "ELSEIF", "CASE", "WHEN", "CHECK", "WHILE"}); }

// The code that runs for each record: of the fields, and of the conditions.
class CodigoPorRegistro {
public:
    explicit CodigoPorRegistro(const Especificacion& e) {
        for (const auto& fila : e.TablaArchivo) {
            if (!EstaEnBlanco(fila.conversion)) textos_.emplace_back(fila.conversion, true);
        }
        for (const auto& fila : e.TablaCondiciones) {
            if (fila.nombre.empty()) break;
            textos_.emplace_back(fila.texto);
        }
    }

    // There is a statement for which `prueba` is true.
    template <typename Prueba>
    bool Hay(Prueba prueba) const {
        for (const auto& texto : textos_) {
            for (std::size_t n = 0; n < texto.size(); ++n) {
                if (prueba(texto[n])) return true;
            }
        }
        return false;
    }

private:
    std::vector<SentenciasABAP> textos_;
};

// The rules, with the rows read once for all of them.
class DeComportamiento {
public:
    DeComportamiento(const Generacion& g, Libreta& libreta)
        : c_(g),
          e_(g.especificacion),
          o_(g.opciones),
          a_(g.analisis),
          libreta_(libreta),
          filas_(LeerFilas(g.especificacion)),
          stepLoops_(LeerStepLoops(g.especificacion, filas_)) {
        const int cantidad = e_.FilasArchivo();
        for (int f = 0; f < cantidad; ++f) campos_.try_emplace(e_.TablaArchivo[f].campo, f);
    }

    void Buscar() {
        BuscarLineasRepetidas();
        BuscarCodigoDeBlanco();
        BuscarPantallasDeSteps();
        BuscarClaves();
        BuscarResultados();
        BuscarRETURN();
        BuscarOpciones();
        BuscarConversiones();
        BuscarVariables();
        BuscarValoresLargos();
        if (e_.OrigenUsuario) BuscarSalidas();
    }

private:
    const FilaDeTransaccion& Fila(std::size_t r) const { return e_.TablaTransaccion[r]; }

    // The row is a field whose value goes through the form that fills a screen.
    bool EnviaAPantalla(std::size_t r) const {
        if (filas_[r].clase != Clase::Campo || filas_[r].esBAPI || filas_[r].operacion == 0) return false;
        if (!a_.operaciones.FilaEnStepLoop(static_cast<int>(r))) return true;
        return Contiene(Fila(r).campo, "(") || Recortar(Fila(r).campo) == "BDC_OKCODE";
    }

    const CodigoPorRegistro& Codigo() {
        if (!codigo_) codigo_.emplace(e_);
        return *codigo_;
    }

    // The lines of a table are read for each record and added to those of the records before, unless the user's code empties it.
    void BuscarLineasRepetidas() {
        if (!o_.EntradaDeTabla()) return;
        for (const auto& stepLoop : stepLoops_) {
            const std::string tabla = Mayusculas(c_.nombres.GTprefijo) + "ITABSL_" + std::to_string(stepLoop.numero);
            const bool vaciada = Codigo().Hay([&](std::span<const Palabra> sentencia) {
                const auto verbo = sentencia[0].texto;
                if (EsUnaDe(verbo, {"REFRESH", "FREE"})) return Nombra(sentencia, tabla);
                return Es(verbo, "CLEAR") && sentencia.size() > 1 && Es(sentencia[1].texto, tabla + "[]");
            });
            if (!vaciada) libreta_.Agregar(401, Lugar::EnPrograma(stepLoop.fila, 4), {tabla, Recortar(stepLoop.archivo)});
        }
    }

    // A value that is the code is blanked where it stands: in the literal, the field, the variable.
    void BuscarCodigoDeBlanco() {
        const auto codigo = CodigoDeBlanco();
        if (codigo.empty()) return;
        std::unordered_map<std::string_view, std::size_t> enviados;
        for (std::size_t r = 0; r < filas_.size(); ++r) {
            if (!EnviaAPantalla(r)) continue;
            const std::string& valor = Fila(r).valor;
            if (valor.empty()) continue;
            const auto lugar = Lugar::EnPrograma(static_cast<int>(r), 3);
            if (EsConstante(valor)) {
                const auto fin = valor.find_last_not_of(' ', valor.size() - 2);
                const bool esCodigo = valor.size() > 2 && std::string_view(valor).substr(1, fin) == codigo;
                if (esCodigo) libreta_.Agregar(402, lugar, {valor, codigo}, 0);
                continue;
            }
            const auto [antes, nuevo] = enviados.try_emplace(valor, r);
            if (EsVariable(valor)) {
                const bool repuesta = nuevo && CambiaEnCadaRegistro(valor.substr(1));
                if (!repuesta) libreta_.Agregar(402, lugar, {valor, codigo}, 2);
            } else if (!nuevo && PuedeSer(valor, codigo)) {
                libreta_.Agregar(402, lugar, {valor, codigo, libreta_.NumeroDeFila(static_cast<int>(antes->second))}, 1);
            }
        }
    }

    // The code for an intended blank, where the report has a use for it.
    std::string_view CodigoDeBlanco() const {
        return a_.operaciones.HayTransaccion && !o_.ProcesarTodoOpt ? Recortar(o_.SpaceCode) : std::string_view{};
    }

    // The field is wide enough for the code, or has values of its own.
    bool PuedeSer(std::string_view campo, std::string_view codigo) const {
        const int f = FilaDeCampo(campo);
        if (f < 0) return false;
        const auto& fila = e_.TablaArchivo[f];
        return TienePares(fila.conversion) || Numero(fila.ancho) >= static_cast<double>(codigo.size());
    }

    int FilaDeCampo(std::string_view campo) const {
        const auto lugar = campos_.find(campo);
        return lugar == campos_.end() ? -1 : lugar->second;
    }

    bool CambiaEnCadaRegistro(std::string_view variable) {
        const std::string nombre = Mayusculas(variable);
        return Codigo().Hay([&](std::span<const Palabra> sentencia) { return Cambia(sentencia, nombre); });
    }

    void BuscarPantallasDeSteps() {
        BuscarCabezasFueraDeLugar();
        for (const auto& stepLoop : stepLoops_) {
            if (stepLoop.leida.esBAPI || stepLoop.leida.operacion == 0) continue;
            const auto ok = BuscarOkCode(e_, stepLoop.fila);
            if (ok.valor.empty()) continue;
            const int okCode = ok.filaDeOkCode;
            const auto lugar = Lugar::EnPrograma(stepLoop.fila, 4);
            const bool conCondicion = Contiene(Fila(static_cast<std::size_t>(okCode)).campo, ";");
            if (conCondicion && !a_.operaciones.FilaEnStepLoop(okCode)) {
                libreta_.Agregar(410, Lugar::EnPrograma(okCode, 2), {Fila(static_cast<std::size_t>(okCode)).campo});
            }
            if (!TerminaConOkCode(stepLoop.fila)) {
                libreta_.Agregar(403, lugar, {Fila(static_cast<std::size_t>(okCode)).valor, Recortar(PantallaDe(stepLoop))},
                                 stepLoop.pantallaNueva ? 1 : 0);
            }
            if (!stepLoop.pantallaNueva && !stepLoop.sigueEnLaPrimera && Numero(stepLoop.filas) == 1) {
                libreta_.Agregar(421, lugar, {Recortar(Fila(static_cast<std::size_t>(stepLoop.fila)).campo)});
            }
        }
    }

    // A screen has one step-loop, which begins at one of its fields. All others have records without fields.
    void BuscarCabezasFueraDeLugar() {
        std::unordered_set<int> pantallas;
        for (const auto& stepLoop : stepLoops_) {
            if (stepLoop.leida.esBAPI || stepLoop.leida.operacion == 0) continue;
            const auto lugar = Lugar::EnPrograma(stepLoop.fila, 4);
            if (stepLoop.leida.clase == Clase::Pantalla) {
                libreta_.Agregar(316, lugar, {}, 1);
            } else if (stepLoop.leida.pantalla >= 0 && !pantallas.insert(stepLoop.leida.pantalla).second) {
                libreta_.Agregar(316, lugar, {Recortar(PantallaDe(stepLoop))}, 2);
            }
        }
    }

    std::string PantallaDe(const StepLoop& stepLoop) const {
        if (stepLoop.leida.pantalla < 0) return {};
        const auto& fila = Fila(static_cast<std::size_t>(stepLoop.leida.pantalla));
        return fila.programa + " " + std::string(AntesDe(fila.dynpro, ';'));
    }

    // Behind the lines of the step-loop the screen is sent with an OK code of its own.
    bool TerminaConOkCode(int cabeza) const {
        for (std::size_t r = static_cast<std::size_t>(cabeza) + 1; r < filas_.size() && filas_[r].clase == Clase::Campo; ++r) {
            if (Recortar(AntesDe(Fila(r).campo, ';')) == "BDC_OKCODE" && !a_.operaciones.FilaEnStepLoop(static_cast<int>(r)))
                return true;
        }
        return false;
    }

    // Names that are part of a key's name count as keys, too.
    void BuscarClaves() {
        std::unordered_map<std::string_view, std::vector<int>> contenidos;  // file fields in a text of keys
        const int cantidad = e_.FilasArchivo();
        for (const auto& stepLoop : stepLoops_) {
            if (stepLoop.claves.empty()) continue;
            const auto [lugar, nuevo] = contenidos.try_emplace(stepLoop.claves);
            for (int f = 0; nuevo && f < cantidad; ++f) {
                if (stepLoop.claves.find(e_.TablaArchivo[f].campo) != std::string_view::npos) lugar->second.push_back(f);
            }
            const auto claves = stepLoop.NombresDeClaves();
            for (const int f : lugar->second) {
                const std::string& campo = e_.TablaArchivo[f].campo;
                if (!EsClave(campo, stepLoop.numero)) continue;
                if (std::find(claves.begin(), claves.end(), campo) != claves.end()) {
                    clavesDeSteps_.insert(campo);
                    continue;
                }
                const auto mayor = std::find_if(claves.begin(), claves.end(), [&](auto clave) { return Contiene(clave, campo); });
                libreta_.Agregar(404, Lugar::EnPrograma(stepLoop.fila, 4),
                                 {campo, mayor == claves.end() ? stepLoop.claves : *mayor});
            }
        }
    }

    bool EsClave(const std::string& campo, int n) const {
        try {
            return a_.operaciones.ClaseCampoEnOperacion(campo, n) == ClaseCampo::Clave;
        } catch (const FalloDeEjecucion&) {
            return false;
        }
    }

    // Under naming conventions the test behind the condition of an operation reads a variable that only the condition's code sets.
    void BuscarResultados() {
        if (c_.nombres.GSprefijo.empty()) return;
        std::unordered_set<std::string_view> deOperaciones;
        for (std::size_t r = 0; r < filas_.size(); ++r) {
            if (filas_[r].clase == Clase::Cabeza) deOperaciones.insert(DespuesDe(Fila(r).dynpro, ';'));
        }
        const std::string resultado = Mayusculas(c_.nombres.GSprefijo) + "RESULT";
        const std::string si = Mayusculas(c_.nombres.GCprefijo) + "YES";
        const bool mismoNombre = IgualesSinCaja(c_.nombres.GSprefijo, c_.nombres.LSprefijo);
        for (int r = 0; r < filasTabla && !e_.TablaCondiciones[r].nombre.empty(); ++r) {
            const auto& [nombre, texto] = e_.TablaCondiciones[r];
            if (!deOperaciones.contains(nombre)) continue;
            const auto falta = mismoNombre ? FaltaDeResultado::Inalcanzable : FaltaEn(texto, resultado, si);
            if (falta == FaltaDeResultado::Ninguna) continue;
            libreta_.Agregar(405, Lugar::EnCondicion(r, 1), {nombre, resultado, Mayusculas(c_.nombres.GCprefijo) + "NO", si},
                             static_cast<int>(falta));
        }
    }

    // The variants of what is wrong with a result.
    enum class FaltaDeResultado { Ninguna = -1, SoloSi = 0, SinAsignar = 1, Inalcanzable = 2 };

    // Nothing where a statement gives the result a value that is not YES.
    static FaltaDeResultado FaltaEn(std::string_view texto, std::string_view resultado, std::string_view si) {
        const SentenciasABAP sentencias(texto);
        auto falta = FaltaDeResultado::SinAsignar;
        for (std::size_t n = 0; n < sentencias.size(); ++n) {
            const auto sentencia = sentencias[n];
            if (!Cambia(sentencia, resultado)) continue;
            const bool daSi = std::any_of(sentencia.begin(), sentencia.end(),
                                          [&](const Palabra& palabra) { return Es(palabra.texto, si) || palabra.texto == "'X'"; });
            if (!daSi) return FaltaDeResultado::Ninguna;
            falta = FaltaDeResultado::SoloSi;
        }
        return falta;
    }

    // The section of a BAPI's call in which its RETURN parameter stands; empty when it has none.
    std::string_view SeccionDeRETURN(std::string_view codigo) const {
        const auto bapi = std::find_if(e_.TablaBAPIs.begin(), e_.TablaBAPIs.end(),
                                       [&](const FilaDeBAPI& fila) { return Recortar(fila.nombre) == codigo; });
        if (bapi == e_.TablaBAPIs.end()) return {};
        std::string_view seccion;
        std::string_view deRETURN;
        try {
            for (const auto& linea : PartirLineas(bapi->llamada, anchoDeLlamada)) {
                for (const std::string_view una : {"EXPORTING", "IMPORTING", "TABLES"}) {
                    if (Recortar(linea) == una) seccion = una;
                }
                if (Contiene(linea, "RETURN = ")) deRETURN = seccion;
            }
        } catch (const FalloDeEjecucion&) {
            return {};
        }
        return deRETURN == "EXPORTING" ? std::string_view{} : deRETURN;
    }

    void BuscarRETURN() {
        if (!a_.ManejoErrores) return;
        for (std::size_t r = 0; r < filas_.size(); ++r) {
            if (filas_[r].clase != Clase::Cabeza || !filas_[r].esBAPI) continue;
            const auto codigo = Recortar(AntesDe(Fila(r).dynpro, ';'));
            const auto seccion = SeccionDeRETURN(codigo);
            if (seccion.empty()) continue;
            pruebaRETURN_ = true;
            libreta_.Agregar(406, Lugar::EnPrograma(static_cast<int>(r), 1), {codigo}, seccion == "TABLES" ? 1 : 0);
        }
    }

    void BuscarOpciones() {
        const bool deServidor = c_.EntradaDeArchivo() && o_.ServidorOp();
        if (deServidor && o_.DelimTab() && e_.FilasArchivo() > 1) libreta_.Agregar(408, Lugar::EnOpcion("DelimTab"));
        if (a_.ManejoErrores && a_.HayJuegoDatos) libreta_.Agregar(411, Lugar::EnOpcion("SafeCallTransactionCheck"));
        BuscarNombreDeSesion();
        const int operaciones = filas_.empty() ? 0 : filas_.back().operacion;
        const bool deshace = a_.ManejoErrores && !a_.operaciones.HayTransaccion && o_.CommitCheck == 1;
        if (a_.ManejoErrores && operaciones > 1 && !deshace) {
            libreta_.Agregar(418, Lugar::EnOpcion("ErrorHandlingCheck"), {std::to_string(operaciones)});
        }
        if (deshace && pruebaRETURN_) libreta_.Agregar(419, Lugar::EnOpcion("CommitCheck"));
    }

    void BuscarNombreDeSesion() {
        if (!a_.HayJuegoDatos) return;
        const bool propio = o_.GeneracionManual() && !EstaEnBlanco(o_.NombreManual);
        const auto nombre = std::string_view(propio ? o_.NombreManual : c_.valores.NombreGrupo).substr(0, largoDeSesion);
        if (Mayusculas(nombre) != nombre) libreta_.Agregar(414, Lugar::EnOpcion("NombreManual"), {nombre, Mayusculas(nombre)});
    }

    void BuscarConversiones() {
        for (int f = 0; f <= ultimaFila; ++f) {
            const auto& fila = e_.TablaArchivo[f];
            if (EstaEnBlanco(fila.conversion)) continue;
            const SentenciasABAP codigo(fila.conversion, true);
            if (codigo.size() == 0) continue;
            const auto campo = Recortar(fila.campo);
            if (a_.operaciones.OperacionDeCampo(campo) != 0) BuscarEnCodigoDeStep(f, codigo);
            BuscarCambiosDeClaves(f, codigo);
        }
    }

    // Code of a step-loop's field runs on the main record, before any line of the step-loop is read.
    void BuscarEnCodigoDeStep(int f, const SentenciasABAP& codigo) {
        const auto lugar = Lugar::EnArchivo(f, 3);
        const std::string& campo = e_.TablaArchivo[f].campo;
        if (!a_.HayConversiones) {
            libreta_.Agregar(409, lugar, {campo}, 1);
            return;
        }
        bool nombraPrincipal = false;
        for (std::size_t n = 0; n < codigo.size(); ++n) {
            for (const auto& palabra : codigo[n]) {
                const auto nombre = NombreEn(palabra.texto);
                if (!nombre.starts_with('#')) continue;
                if (a_.operaciones.OperacionDeCampo(Mayusculas(nombre.substr(1))) != 0) return;  // refused
                nombraPrincipal = true;
            }
        }
        if (!nombraPrincipal) libreta_.Agregar(409, lugar, {campo}, 0);
    }

    // The value by which lines are found is another one than the lines have.
    void BuscarCambiosDeClaves(int f, const SentenciasABAP& codigo) {
        if (a_.HayStepSinClave || !a_.HayConversiones) return;
        for (const auto clave : clavesDeSteps_) {
            const std::string nombre = "#" + Mayusculas(clave);
            for (std::size_t n = 0; n < codigo.size(); ++n) {
                if (!Cambia(codigo[n], nombre)) continue;
                libreta_.Agregar(417, Lugar::EnArchivo(f, 3, codigo[n].front().linea), {clave});
                break;
            }
        }
    }

    // Types whose values don't stand in a field of characters as they are read.
    void BuscarVariables() {
        for (std::size_t r = 0; r < filas_.size(); ++r) {
            if (!EnviaAPantalla(r) || !EsVariable(Fila(r).valor)) continue;
            const auto* const variable = VariableDe(Fila(r).valor);
            if (variable == nullptr || variable->tipo == 'C') continue;
            const auto codigo = CodigoDeBlanco();
            const bool noNumerico = codigo.find_first_not_of("0123456789") != std::string_view::npos;
            if (variable->tipo == 'N' && !noNumerico) continue;
            libreta_.Agregar(420, Lugar::EnPrograma(static_cast<int>(r), 3),
                             {Fila(r).valor, std::string(1, variable->tipo), codigo}, noNumerico && variable->tipo != 'F' ? 1 : 0);
        }
    }

    struct Variable {
        char tipo = 'C';   // P, I, F, N, or C for all others
        double largo = 0;  // as declared; 0 where it is not
    };

    // The declaration of a variable that a row sends; nullptr where none is found.
    const Variable* VariableDe(std::string_view valor) {
        if (!variables_) variables_ = LeerVariables();
        const auto lugar = variables_->find(Mayusculas(Recortar(valor.substr(1))));
        return lugar == variables_->end() ? nullptr : &lugar->second;
    }

    std::unordered_map<std::string, Variable> LeerVariables() const {
        std::unordered_map<std::string, Variable> variables;
        const auto leer = [&](const std::string& texto) {
            const SentenciasABAP sentencias(texto);
            for (std::size_t n = 0; n < sentencias.size(); ++n) {
                const auto sentencia = sentencias[n];
                const bool declara = EsUnaDe(sentencia[0].texto, {"DATA", "PARAMETERS", "CONSTANTS", "STATICS"});
                if (!declara || sentencia.size() < 2) continue;
                variables.try_emplace(Mayusculas(NombreEn(sentencia[1].texto)), VariableEn(sentencia, variables));
            }
        };
        leer(e_.VariablesGlobales);
        if (e_.OrigenUsuario) leer(e_.OrigenVariables);
        return variables;
    }

    static Variable VariableEn(std::span<const Palabra> sentencia, const std::unordered_map<std::string, Variable>& anteriores) {
        Variable variable;
        variable.largo = Numero(DespuesDe(sentencia[1].texto, '('));
        for (std::size_t i = 2; i + 1 < sentencia.size(); ++i) {
            const auto tipo = sentencia[i + 1].texto;
            if (Es(sentencia[i].texto, "TYPE") && EsUnaDe(tipo, {"P", "I", "F", "N"})) {
                variable.tipo = static_cast<char>(Mayuscula(static_cast<unsigned char>(tipo.front())));
            } else if (Es(sentencia[i].texto, "LIKE")) {
                if (const auto otra = anteriores.find(Mayusculas(tipo)); otra != anteriores.end()) variable = otra->second;
                if (EsUnaDe(tipo, {"SY-INDEX", "SY-TABIX", "SY-SUBRC", "SY-TFILL", "SY-FDPOS", "SY-DBCNT"})) variable.tipo = 'I';
            }
        }
        return variable;
    }

    void BuscarValoresLargos() {
        for (std::size_t r = 0; r < filas_.size(); ++r) {
            if (!EnviaAPantalla(r)) continue;
            const std::string& valor = Fila(r).valor;
            double largo = 0;
            if (EsConstante(valor)) {
                largo = static_cast<double>(valor.size()) - 2;
            } else if (EsVariable(valor)) {
                const auto* const variable = VariableDe(valor);
                largo = variable == nullptr ? 0 : variable->largo;
            } else if (const int f = FilaDeCampo(valor); f >= 0) {
                largo = Numero(e_.TablaArchivo[f].ancho);
            }
            if (largo <= largoDeValor) continue;
            libreta_.Agregar(422, Lugar::EnPrograma(static_cast<int>(r), 3), {valor, TextoDeNumero(largo)});
        }
    }

    void BuscarSalidas();

    const Generacion& c_;
    const Especificacion& e_;
    const Opciones& o_;
    const Analisis& a_;
    Libreta& libreta_;
    std::vector<FilaLeida> filas_;
    std::vector<StepLoop> stepLoops_;
    std::optional<CodigoPorRegistro> codigo_;
    std::optional<std::unordered_map<std::string, Variable>> variables_;
    std::unordered_map<std::string_view, int> campos_;    // names of the file side, each with its first row
    std::unordered_set<std::string_view> clavesDeSteps_;  // chosen key fields
    bool pruebaRETURN_ = false;                           // some BAPI's RETURN is tested
};

// The user's own source ends at an EXIT, and the report goes on behind it.
class SalidasDelOrigen {
public:
    SalidasDelOrigen(std::string_view texto, std::string itab) : sentencias_(texto), itab_(std::move(itab)) {}

    // Calls `funcion` with the line of each EXIT that follows a file that can't be read, and whether main records have been read
    // before.
    template <typename Funcion>
    void PorCadaUna(Funcion funcion) {
        int bucles = 0;
        bool deError = false;
        for (std::size_t n = 0; n < sentencias_.size(); ++n) {
            const auto sentencia = sentencias_[n];
            const auto verbo = sentencia[0].texto;
            if (EsUnaDe(verbo, {"LOOP", "DO", "WHILE"}) || EsBucleDeSELECT(sentencia)) ++bucles;
            if (EsUnaDe(verbo, {"ENDLOOP", "ENDDO", "ENDWHILE", "ENDSELECT"})) --bucles;
            if (Es(verbo, "IF")) deError = !error_.empty() && Nombra(sentencia, error_);
            if (EsUnaDe(verbo, {"ELSE", "ELSEIF", "ENDIF"})) deError = false;
            if (Es(verbo, "EXIT") && bucles <= 0 && deError) funcion(sentencia[0].linea, leidosAntes_);
            Leer(sentencia);
        }
    }

private:
    static bool EsBucleDeSELECT(std::span<const Palabra> sentencia) {
        if (!Es(sentencia[0].texto, "SELECT") || (sentencia.size() > 1 && Es(sentencia[1].texto, "SINGLE"))) return false;
        return std::none_of(sentencia.begin(), sentencia.end(), [](const Palabra& palabra) { return Es(palabra.texto, "TABLE"); });
    }

    // Remembers what tells of a failure, and whether the main table has been filled.
    void Leer(std::span<const Palabra> sentencia) {
        const auto verbo = sentencia[0].texto;
        const bool abre = Es(verbo, "OPEN") && sentencia.size() > 1 && Es(sentencia[1].texto, "DATASET");
        const bool llama = Es(verbo, "PERFORM") && std::any_of(sentencia.begin(), sentencia.end(),
                                                               [](const Palabra& palabra) { return Es(palabra.texto, "TABLES"); });
        if (abre || llama) {
            leidosAntes_ = leidos_;
            error_ = abre ? "SY-SUBRC" : Mayusculas(NombreEn(sentencia.back().texto));
        } else if (!EsCondicional(sentencia[0]) && !EsUnaDe(verbo, {"WRITE", "ELSE", "ENDIF", "EXIT"})) {
            if (error_ == "SY-SUBRC" || Nombra(sentencia, error_)) error_.clear();
        }
        if (Nombra(sentencia, itab_) && !EsUnaDe(verbo, {"REFRESH", "CLEAR", "FREE"})) leidos_ = true;
    }

    SentenciasABAP sentencias_;
    std::string itab_;
    std::string error_;         // what the last read of a file sets
    bool leidos_ = false;       // main records have been read
    bool leidosAntes_ = false;  // in front of that read
};

void DeComportamiento::BuscarSalidas() {
    SalidasDelOrigen(e_.OrigenSource, Mayusculas(c_.nombres.GTprefijo) + "ITAB").PorCadaUna([&](int linea, bool hayRegistros) {
        libreta_.Agregar(hayRegistros ? 423 : 415, Lugar::EnTexto(Parte::OrigenSource, linea));
    });
}

}  // namespace

void ReglasDeComportamiento(const Generacion& g, Libreta& libreta) { DeComportamiento(g, libreta).Buscar(); }

}  // namespace qor

// MESSAGE.
#include <algorithm>
#include <array>

#include "abap/compile/list_statements.h"
#include "abap/values/conversion.h"
#include "base/text.h"

namespace qor::abap {

namespace {

constexpr std::size_t masVariables = 4;
constexpr std::size_t largoDeVariable = 50;
constexpr std::string_view tipos = "AEISWX";

// A variable as it stands in the text: numbers and dates as WRITE shows them.
std::string TextoDeVariable(const Campo& campo) {
    std::string texto = TextoDeSalida(campo, AnchoDeSalida(campo), {});
    if (campo.tipo == Tipo::I || campo.tipo == Tipo::P || campo.tipo == Tipo::F)
        texto.erase(0, std::min(texto.find_first_not_of(' '), texto.size()));
    return std::string(SinBlancosDetras(std::string_view(texto).substr(0, largoDeVariable)));
}

std::string TextoSinBlancos(Maquina& maquina, const Operando& operando) {
    std::string resto;
    return std::string(SinBlancosDetras(TextoDeOperando(maquina.Resolver(operando), resto)));
}

class Mensaje : public Instruccion {
public:
    std::optional<Operando> tipo;
    std::optional<Operando> id;
    std::optional<Operando> numero;
    std::optional<Operando> texto;  // instead of a class and a number
    std::vector<Operando> variables;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        const auto letra = Mayusculas(TextoSinBlancos(maquina, *tipo));
        if (letra.size() != 1 || tipos.find(letra.front()) == std::string_view::npos)
            throw Volcado("MESSAGE_TYPE_UNKNOWN", "A message has no type \"" + letra + "\"");
        std::vector<std::string> suyas;
        std::string clase;
        std::string cual;
        if (texto) {
            suyas.push_back(TextoSinBlancos(maquina, *texto));
        } else {
            clase = Mayusculas(TextoSinBlancos(maquina, *id));
            cual = TextoSinBlancos(maquina, *numero);
            cual.insert(0, cual.size() < 3 ? 3 - cual.size() : 0, '0');
            for (const auto& variable : variables) suyas.push_back(TextoDeVariable(maquina.Resolver(variable)));
            Anotar(maquina, letra, clase, cual, suyas);
        }
        maquina.Alrededor().seguimiento.Mensaje(letra.front(), clase, cual, suyas);
        if (letra == "X") throw Volcado("MESSAGE_TYPE_X", "A message of type X was sent");
        if (letra == "A") throw SaltoDeReporte{SaltoDeReporte::Adonde::Abandono};
        if (letra == "E") throw SaltoDeReporte{SaltoDeReporte::Adonde::Mensaje};
        return siguiente;
    }

private:
    static void Anotar(Maquina& maquina, const std::string& letra, const std::string& clase, const std::string& cual,
                       const std::vector<std::string>& suyas) {
        constexpr std::array<std::string_view, masVariables> nombres = {"MSGV1", "MSGV2", "MSGV3", "MSGV4"};
        maquina.PonerSY("MSGTY", letra);
        maquina.PonerSY("MSGID", clase);
        maquina.PonerSY("MSGNO", cual);
        for (std::size_t i = 0; i < nombres.size(); ++i) maquina.PonerSY(nombres[i], i < suyas.size() ? suyas[i] : "");
    }
};

// X000(CC), or X000 of the class that REPORT names.
bool LeerCorto(Compilador& c, Lectura& l, Mensaje& mensaje) {
    const auto texto = Mayusculas(l.Actual().texto);
    if (l.Actual().EsLiteral() || texto.size() < 4 || tipos.find(texto.front()) == std::string_view::npos ||
        !EsEntero(std::string_view(texto).substr(1, 3))) {
        return false;
    }
    std::string clase = c.Suyo().claseDeMensajes;
    if (texto.size() > 6 && texto[4] == '(' && texto.back() == ')') {
        clase = texto.substr(5, texto.size() - 6);
    } else if (texto.size() != 4) {
        return false;
    } else if (clase.empty()) {
        l.Fallar("the message class is named neither here nor in REPORT");
    }
    l.Avanzar();
    mensaje.tipo = c.Literal(texto.substr(0, 1));
    mensaje.id = c.Literal(clase);
    mensaje.numero = c.Literal(texto.substr(1, 3));
    return true;
}

}  // namespace

void CompilarMESSAGE(Compilador& c, Lectura& l) {
    auto mensaje = std::make_unique<Mensaje>();
    if (l.Es("ID"_c) && l.Hay(2)) {
        while (l.Hay() && !l.Es("WITH"_c)) {
            if (!mensaje->id && l.Toma("ID"_c)) {
                mensaje->id = c.LeerOperando(l);
            } else if (!mensaje->tipo && l.Toma("TYPE"_c)) {
                mensaje->tipo = c.LeerOperando(l);
            } else if (!mensaje->numero && l.Toma("NUMBER"_c)) {
                mensaje->numero = c.LeerOperando(l);
            } else {
                l.NoSePractica();
            }
        }
        if (!mensaje->tipo || !mensaje->numero) l.Fallar("TYPE and NUMBER were expected");
    } else if (!LeerCorto(c, l, *mensaje)) {
        mensaje->texto = c.LeerOperando(l);
        l.Exige("TYPE"_c, "TYPE");
        mensaje->tipo = c.LeerOperando(l);
    }
    if (!mensaje->texto && l.Toma("WITH"_c)) {
        do {
            mensaje->variables.push_back(c.LeerOperando(l));
        } while (l.Hay() && mensaje->variables.size() < masVariables);
    }
    if (l.Hay()) l.NoSePractica();
    c.Emitir(std::unique_ptr<Instruccion>(std::move(mensaje)));
}

}  // namespace qor::abap

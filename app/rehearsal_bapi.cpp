#include <algorithm>
#include <map>
#include <utility>

#include "app/rehearsal_rows.h"
#include "base/text.h"

namespace qor {

namespace {

constexpr std::string_view nombreDeRespuesta = "RETURN";

// Rows of the program side whose conditions were asked, with the answers.
using Condiciones = std::map<int, bool>;

// A line of a step-loop that became a row of a table.
struct LineaDeTabla {
    std::size_t numero = 0;
    Condiciones condiciones;
};

// PARAMETER = VARIABLE, as the call has them.
std::vector<std::pair<std::string, std::string>> ParametrosDe(std::string_view llamada) {
    std::vector<std::string> palabras;
    for (std::size_t i = 0; i < llamada.size();) {
        const auto desde = llamada.find_first_not_of(" \r\n", i);
        if (desde == std::string_view::npos) break;
        auto hasta = llamada[desde] == '=' ? desde + 1 : llamada.find_first_of(" \r\n=", desde);
        if (hasta == std::string_view::npos) hasta = llamada.size();
        palabras.push_back(Mayusculas(llamada.substr(desde, hasta - desde)));
        i = hasta;
    }
    std::vector<std::pair<std::string, std::string>> parametros;
    for (std::size_t i = 1; i + 1 < palabras.size(); ++i) {
        if (palabras[i] != "=") continue;
        auto variable = palabras[i + 1];
        while (!variable.empty() && (variable.back() == '.' || variable.back() == ',')) variable.pop_back();
        parametros.emplace_back(palabras[i - 1], variable);
    }
    return parametros;
}

// The fields of a structure, those of structures in it under the names of both.
void Aplanar(const ValorDeDiario& valor, const std::string& delante, std::vector<std::pair<std::string, std::string>>& campos) {
    for (const auto& parte : valor.partes) {
        if (parte.clase == ValorDeDiario::Clase::Objeto)
            Aplanar(parte, delante + parte.nombre + "-", campos);
        else
            campos.emplace_back(delante + parte.nombre, parte.texto);
    }
}

class LlenadorDeBapi {
public:
    LlenadorDeBapi(Envio& envio, int cabeza, std::size_t registro, const FilasDeEnsayo& filas)
        : envio_(envio), registro_(registro), filas_(filas) {
        if (cabeza < 0) return;
        const int fin = filas_.FinDeOperacion(cabeza);
        for (int fila = cabeza + 1; fila < fin; ++fila) {
            if (EstaEnBlanco(filas_.Fila(fila).programa)) propias_.push_back(fila);
        }
        for (const auto& bapi : filas_.LaEspecificacion().TablaBAPIs) {
            if (bapi.nombre.empty()) break;
            if (Recortar(bapi.nombre) == filas_.Codigo(cabeza)) parametros_ = ParametrosDe(bapi.llamada);
        }
    }

    void Llenar(const ValorDeDiario& evento, const std::vector<PasoLeido>& pasos) {
        LeerPasos(pasos);
        for (const auto& parametro : evento.PartesDe("exports")) LlenarCampo(parametro);
        for (const auto& parametro : evento.PartesDe("tables")) {
            if (parametro.nombre != nombreDeRespuesta) LlenarTabla(parametro);
        }
    }

private:
    void LeerPasos(const std::vector<PasoLeido>& pasos) {
        int grupo = 0;
        for (const auto& [paso, texto] : pasos) {
            if (paso.clase == Paso::Clase::Linea) {
                grupo = paso.numero;
                lineas_[grupo].push_back({paso.linea, {}});
            } else if (paso.clase == Paso::Clase::Condicion) {
                const int fila = filas_.LugarDe(paso).fila;
                const bool deGrupo = grupo > 0 && filas_.LasOperaciones().OperacionFila(fila) == grupo;
                (deGrupo ? lineas_[grupo].back().condiciones : condiciones_)[fila] = paso.Tiene(Paso::cierta);
            }
        }
    }

    // What stands behind the parameter in the call.
    std::string VariableDe(const std::string& parametro) const {
        for (const auto& [nombre, variable] : parametros_) {
            if (nombre == parametro) return variable;
        }
        return {};
    }

    // The variable that a row fills, and its field.
    std::pair<std::string, std::string> DestinoDe(int fila) const {
        const auto destino = Mayusculas(Recortar(AntesDe(AntesDe(filas_.Fila(fila).campo, ';'), '(')));
        return {std::string(AntesDe(destino, '-')), std::string(DespuesDe(destino, '-'))};
    }

    std::vector<int> FilasDe(const std::string& variable, int grupo) const {
        std::vector<int> suyas;
        for (const int fila : propias_) {
            if (!variable.empty() && filas_.LasOperaciones().OperacionFila(fila) == grupo && DestinoDe(fila).first == variable)
                suyas.push_back(fila);
        }
        return suyas;
    }

    void LlenarCampo(const ValorDeDiario& parametro) {
        auto& pantalla = NuevaPantalla(parametro.nombre);
        const auto suyas = FilasDe(VariableDe(parametro.nombre), 0);
        if (!suyas.empty()) pantalla.celda = Lugar::EnPrograma(suyas.front(), 2);
        PonerCampos(pantalla, parametro, suyas, condiciones_, 0);
    }

    void LlenarTabla(const ValorDeDiario& parametro) {
        const auto variable = VariableDe(parametro.nombre);
        int grupo = 0;
        for (const int fila : propias_) {
            const int suyo = filas_.LasOperaciones().OperacionFila(fila);
            if (suyo > 0 && !variable.empty() && DestinoDe(fila).first == variable) grupo = suyo;
        }
        const auto suyas = grupo > 0 ? FilasDe(variable, grupo) : std::vector<int>();
        const Lugar celda = suyas.empty() ? Lugar() : Lugar::EnPrograma(suyas.front(), 2);
        if (parametro.partes.empty() && grupo > 0) {
            auto& pantalla = NuevaPantalla(parametro.nombre);
            pantalla.celda = celda;
            pantalla.sinEnviar = sinLineas;
        }
        const auto& lineas = lineas_[grupo];
        // Rows that other code has put in or taken out leave none sure.
        const bool seguras = grupo > 0 && lineas.size() == parametro.partes.size();
        for (std::size_t i = 0; i < parametro.partes.size(); ++i) {
            auto& pantalla = NuevaPantalla(parametro.nombre);
            pantalla.dynpro = std::to_string(i + 1);
            pantalla.celda = celda;
            if (seguras)
                PonerCampos(pantalla, parametro.partes[i], suyas, lineas[i].condiciones, lineas[i].numero);
            else
                PonerCampos(pantalla, parametro.partes[i], {}, {}, 0);
        }
    }

    // The fields in the order of their rows, and behind them what no row has filled.
    void PonerCampos(PantallaEnviada& pantalla, const ValorDeDiario& valor, const std::vector<int>& suyas,
                     const Condiciones& condiciones, std::size_t linea) {
        std::vector<std::pair<std::string, std::string>> valores;
        if (valor.clase == ValorDeDiario::Clase::Objeto)
            Aplanar(valor, {}, valores);
        else
            valores.emplace_back(std::string(), valor.texto);
        const auto negada = [&](int fila) {
            const auto lugar = condiciones.find(fila);
            return lugar != condiciones.end() && !lugar->second;
        };
        for (std::size_t i = 0; i < suyas.size(); ++i) {
            const auto nombre = DestinoDe(suyas[i]).second;
            auto& campo = pantalla.campos.emplace_back();
            campo.campo = nombre.empty() ? pantalla.programa : nombre;
            filas_.PonerProcedencia(campo, suyas[i], registro_, linea);
            const int detras = BuscarDetras(suyas, i, nombre);
            const auto enviado = std::find_if(valores.begin(), valores.end(), [&](const auto& uno) { return uno.first == nombre; });
            if (negada(suyas[i])) {
                campo.sinEnviar = FilasDeEnsayo::NoSeCumple(filas_.Fila(suyas[i]).campo);
            } else if (detras >= 0) {
                campo.sinEnviar = negada(detras) ? "A row behind it clears the field." : "A row behind it fills the field.";
            } else if (enviado == valores.end()) {
                campo.sinEnviar = "The value is blank or zero.";
            } else {
                campo.valor = std::move(enviado->second);
                valores.erase(enviado);
            }
        }
        for (auto& [nombre, texto] : valores) {
            auto& campo = pantalla.campos.emplace_back();
            campo.campo = nombre.empty() ? pantalla.programa : nombre;
            campo.valor = std::move(texto);
        }
    }

    // The last row behind that one which fills the same field; -1 where there is none.
    int BuscarDetras(const std::vector<int>& suyas, std::size_t i, const std::string& nombre) const {
        int detras = -1;
        for (std::size_t j = i + 1; j < suyas.size(); ++j) {
            if (DestinoDe(suyas[j]).second == nombre) detras = suyas[j];
        }
        return detras;
    }

    PantallaEnviada& NuevaPantalla(std::string nombre) {
        auto& pantalla = envio_.pantallas.emplace_back();
        pantalla.programa = std::move(nombre);
        return pantalla;
    }

    Envio& envio_;
    std::size_t registro_;
    const FilasDeEnsayo& filas_;
    std::vector<int> propias_;  // rows of fields
    std::vector<std::pair<std::string, std::string>> parametros_;
    Condiciones condiciones_;  // of fields of the main record
    std::map<int, std::vector<LineaDeTabla>> lineas_;
};

}  // namespace

void LlenarBapi(Envio& envio, const ValorDeDiario& evento, const std::vector<PasoLeido>& pasos, int cabeza, std::size_t registro,
                const FilasDeEnsayo& filas) {
    LlenadorDeBapi(envio, cabeza, registro, filas).Llenar(evento, pasos);
}

}  // namespace qor

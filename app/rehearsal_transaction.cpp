#include <algorithm>
#include <set>

#include "app/rehearsal_rows.h"
#include "base/text.h"

namespace qor {

namespace {

// A row of BDCDATA, as the journal has it.
struct FilaEnviada {
    bool abre = false;
    std::string_view programa;  // or the name of a field
    std::string_view dynpro;    // or its value
};

std::vector<FilaEnviada> FilasDe(const ValorDeDiario& evento) {
    std::vector<FilaEnviada> filas;
    for (const auto& pantalla : evento.PartesDe("screens")) {
        const auto programa = pantalla.TextoDe("program");
        const auto dynpro = pantalla.TextoDe("dynpro");
        // Fields in front of every screen stand in one without a name.
        if (!programa.empty() || !dynpro.empty()) filas.push_back({true, programa, dynpro});
        for (const auto& campo : pantalla.PartesDe("fields")) {
            if (campo.partes.size() == 2) filas.push_back({false, campo.partes[0].texto, campo.partes[1].texto});
        }
    }
    return filas;
}

class LlenadorDeTransaccion {
public:
    LlenadorDeTransaccion(Envio& envio, const ValorDeDiario& evento, int cabeza, std::size_t registro, const FilasDeEnsayo& filas)
        : envio_(envio), enviadas_(FilasDe(evento)), cabeza_(cabeza), registro_(registro), filas_(filas) {
        if (cabeza_ >= 0) fin_ = filas_.FinDeOperacion(cabeza_);
    }

    void Llenar(const std::vector<PasoLeido>& pasos) {
        for (const auto& [paso, texto] : pasos) {
            if (paso.clase == Paso::Clase::Linea) {
                linea_ = paso.linea;
                grupos_.insert(paso.numero);
            } else if (paso.clase == Paso::Clase::Envio) {
                Seguir(paso);
            }
        }
        DecirSinTurno(fin_);
        PonerSinProcedencia(enviadas_.size());
    }

private:
    void Seguir(const Paso& paso) {
        const auto lugar = filas_.LugarDe(paso);
        const int fila = lugar.parte == Lugar::Parte::Programa ? lugar.fila : -1;
        if (fila >= 0 && filas_.LasOperaciones().OperacionFila(fila) == 0) DecirSinTurno(fila);
        vistas_.insert(fila);
        const bool abre = paso.Tiene(Paso::abre);
        const auto suya = paso.Tiene(Paso::enviado) ? Buscar(paso, fila) : enviadas_.size();
        if (suya < enviadas_.size()) {
            PonerSinProcedencia(suya);
            Poner(enviadas_[siguiente_++], lugar, fila);
        } else if (fila >= 0) {
            PonerSinEnviar(paso, fila);
        }
        if (abre) abierta_ = paso.Tiene(Paso::enviado);
    }

    // The name of a field as it is sent.
    std::string NombreDeCampo(const Paso& paso, int fila) const {
        const auto& celda = filas_.Fila(fila).campo;
        if (paso.numero == 0) return std::string(SinBlancosDetras(AntesDe(celda, ';')));
        return std::string(AntesDe(celda, '(')) + "(" + std::to_string(paso.numero) + ")";
    }

    bool Casa(const FilaEnviada& enviada, const Paso& paso, int fila) const {
        if (enviada.abre != paso.Tiene(Paso::abre)) return false;
        if (fila < 0) return true;
        const auto& suya = filas_.Fila(fila);
        if (!enviada.abre) return enviada.programa == NombreDeCampo(paso, fila);
        return enviada.programa == SinBlancosDetras(suya.programa) && enviada.dynpro == SinBlancosDetras(AntesDe(suya.dynpro, ';'));
    }

    // The row that the call has made: the next one, unless the user's own code puts rows between or takes some out. A field is not
    // looked for behind its screen.
    std::size_t Buscar(const Paso& paso, int fila) const {
        for (auto suya = siguiente_; suya < enviadas_.size(); ++suya) {
            if (Casa(enviadas_[suya], paso, fila)) return suya;
            if (enviadas_[suya].abre && !paso.Tiene(Paso::abre)) break;
        }
        return enviadas_.size();
    }

    void PonerSinProcedencia(std::size_t hasta) {
        while (siguiente_ < hasta) Poner(enviadas_[siguiente_++], {}, -1);
    }

    void Poner(const FilaEnviada& enviada, const Lugar& lugar, int fila) {
        if (enviada.abre) {
            envio_.pantallas.push_back({std::string(enviada.programa), std::string(enviada.dynpro), lugar, {}, {}});
            return;
        }
        auto& campo = NuevoCampo(std::string(enviada.programa));
        campo.valor = enviada.dynpro;
        campo.celda = lugar;
        if (fila >= 0) filas_.PonerProcedencia(campo, fila, registro_, linea_);
    }

    void PonerSinEnviar(const Paso& paso, int fila) {
        const auto& suya = filas_.Fila(fila);
        const bool negada = paso.Tiene(Paso::preguntado) && !paso.Tiene(Paso::cierta);
        if (paso.Tiene(Paso::abre)) {
            envio_.pantallas.push_back({std::string(SinBlancosDetras(suya.programa)),
                                        std::string(SinBlancosDetras(AntesDe(suya.dynpro, ';'))),
                                        Lugar::EnPrograma(fila, 1),
                                        {},
                                        negada ? FilasDeEnsayo::NoSeCumple(suya.dynpro) : sinMotivo});
            return;
        }
        auto& campo = NuevoCampo(NombreDeCampo(paso, fila));
        filas_.PonerProcedencia(campo, fila, registro_, linea_);
        campo.sinEnviar = !abierta_                    ? "Its screen was not opened."
                          : negada                     ? FilasDeEnsayo::NoSeCumple(suya.campo)
                          : paso.Tiene(Paso::enviado)  ? sinMotivo
                          : paso.Tiene(Paso::enBlanco) ? "The value is blank."
                                                       : sinMotivo;
    }

    // Rows of step-loops in front of a row that had no turn: no line belonged to the record, or the OK code that leads from screen
    // to screen was not wanted.
    void DecirSinTurno(int hasta) {
        for (dicha_ = std::max(dicha_, cabeza_ + 1); cabeza_ >= 0 && dicha_ < hasta; ++dicha_) {
            const int grupo = filas_.LasOperaciones().OperacionFila(dicha_);
            if (grupo == 0 || vistas_.contains(dicha_)) continue;
            const auto nombre = AntesDe(AntesDe(filas_.Fila(dicha_).campo, ';'), '(');
            auto& campo = NuevoCampo(std::string(nombre));
            filas_.PonerProcedencia(campo, dicha_, registro_, 0);
            campo.sinEnviar = !grupos_.contains(grupo)           ? sinLineas
                              : Recortar(nombre) == "BDC_OKCODE" ? "The step-loop did not go on to another screen."
                                                                 : sinMotivo;
        }
    }

    CampoEnviado& NuevoCampo(std::string nombre) {
        if (envio_.pantallas.empty()) envio_.pantallas.emplace_back();
        auto& campo = envio_.pantallas.back().campos.emplace_back();
        campo.campo = std::move(nombre);
        return campo;
    }

    Envio& envio_;
    std::vector<FilaEnviada> enviadas_;
    std::size_t siguiente_ = 0;
    int cabeza_;
    int fin_ = 0;
    std::size_t registro_;
    const FilasDeEnsayo& filas_;
    bool abierta_ = true;    // the screen that fields go to
    std::size_t linea_ = 0;  // of the step-loop
    std::set<int> grupos_;   // step-loops that had a line
    std::set<int> vistas_;   // rows that had a turn
    int dicha_ = 0;          // rows in front of it have had theirs, or were told
};

}  // namespace

void LlenarTransaccion(Envio& envio, const ValorDeDiario& evento, const std::vector<PasoLeido>& pasos, int cabeza,
                       std::size_t registro, const FilasDeEnsayo& filas) {
    LlenadorDeTransaccion(envio, evento, cabeza, registro, filas).Llenar(pasos);
}

}  // namespace qor

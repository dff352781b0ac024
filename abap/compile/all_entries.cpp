#include "abap/compile/all_entries.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace qor::abap {

namespace {

// Rows whose conditions are asked for at once.
constexpr std::size_t maximoDePartes = 500;

class FilasGuardadas : public FilasDeBase {
public:
    bool Siguiente(std::vector<ValorDeBase>& fila) override {
        if (lugar_ == filas_.size()) return false;
        fila = std::move(filas_[lugar_++]);
        return true;
    }

    // Those that are not there yet; none behind `limite` of them, where it is not 0.
    void Agregar(FilasDeBase& filas, std::size_t limite) {
        std::vector<ValorDeBase> fila;
        while ((limite == 0 || filas_.size() < limite) && filas.Siguiente(fila)) {
            if (claves_.insert(ClaveDe(fila)).second) filas_.push_back(std::move(fila));
            fila.clear();
        }
    }

private:
    static std::string ClaveDe(const std::vector<ValorDeBase>& fila) {
        std::string clave;
        for (const auto& valor : fila) {
            clave += static_cast<char>('0' + valor.index());
            if (const auto* texto = std::get_if<std::string>(&valor)) {
                clave += std::to_string(texto->size()) + ":" + *texto;
            } else if (const auto* entero = std::get_if<std::int64_t>(&valor)) {
                clave += std::to_string(*entero) + ":";
            } else if (const auto* flotante = std::get_if<double>(&valor)) {
                clave.append(reinterpret_cast<const char*>(flotante), sizeof *flotante);
            }
        }
        return clave;
    }

    std::vector<std::vector<ValorDeBase>> filas_;
    std::unordered_set<std::string> claves_;
    std::size_t lugar_ = 0;
};

void BuscarComponentes(const Donde& donde, std::vector<const Componente*>& componentes) {
    for (const auto& parte : donde.partes) BuscarComponentes(parte, componentes);
    for (const auto& valor : donde.valores) {
        if (valor.deEntrada) componentes.push_back(&*valor.deEntrada);
    }
}

// The rows of the table that differ in the components that the condition names.
std::vector<const std::uint8_t*> Distintas(const TablaInterna& tabla, const Donde& donde) {
    std::vector<const Componente*> componentes;
    BuscarComponentes(donde, componentes);
    std::unordered_set<std::string> vistas;
    std::vector<const std::uint8_t*> filas;
    for (std::size_t i = 0; i < tabla.Filas(); ++i) {
        std::string clave;
        for (const auto* componente : componentes) clave += CampoDeComponente(*componente, tabla.Fila(i)).Texto();
        if (vistas.insert(std::move(clave)).second) filas.push_back(tabla.Fila(i));
    }
    return filas;
}

}  // namespace

std::unique_ptr<FilasDeBase> AbrirPorEntradas(Maquina& maquina, const Seleccion& seleccion, ConsultaDeBase consulta) {
    auto& base = maquina.Alrededor().base;
    const auto entradas = Distintas(maquina.Tabla(seleccion.entradas->tabla), *seleccion.donde);
    const auto limite = static_cast<std::size_t>(std::exchange(consulta.limite, 0));
    auto todas = std::make_unique<FilasGuardadas>();
    if (entradas.empty()) {
        todas->Agregar(*base.Seleccionar(consulta), limite);
        return todas;
    }
    for (std::size_t desde = 0; desde < entradas.size(); desde += maximoDePartes) {
        consulta.donde = {};
        consulta.donde.clase = CondicionDeBase::Clase::O;
        const std::size_t hasta = std::min(entradas.size(), desde + maximoDePartes);
        for (std::size_t i = desde; i < hasta; ++i)
            consulta.donde.partes.push_back(Evaluar(maquina, *seleccion.donde, entradas[i]));
        todas->Agregar(*base.Seleccionar(consulta), limite);
    }
    return todas;
}

}  // namespace qor::abap

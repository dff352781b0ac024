#include "app/rehearsal_steps.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

#include "base/failure.h"

namespace qor {

namespace {

constexpr std::size_t bloqueLleno = std::size_t{1} << 18;
constexpr const char* nombreDePasos = "steps";

// Texts behind steps fill whole steps.
std::size_t ConRelleno(std::size_t largo) { return (largo + sizeof(Paso) - 1) / sizeof(Paso) * sizeof(Paso); }

}  // namespace

std::vector<PasoLeido> LeerPasos(std::string_view pasos) {
    std::vector<PasoLeido> leidos;
    while (pasos.size() >= sizeof(Paso)) {
        PasoLeido leido;
        std::memcpy(&leido.paso, pasos.data(), sizeof(Paso));
        pasos.remove_prefix(sizeof(Paso));
        if (leido.paso.Tiene(Paso::conTexto)) {
            leido.texto = pasos.substr(0, leido.paso.numero);
            pasos.remove_prefix(std::min(pasos.size(), ConRelleno(leido.paso.numero)));
        }
        leidos.push_back(leido);
    }
    return leidos;
}

NotasDeEnsayo::NotasDeEnsayo() : directorio_(std::make_unique<DirectorioPrivado>()) {
    const auto ruta = directorio_->Ruta() / nombreDePasos;
    pasos_ = Descriptor(llamadas::Abrir(ruta, modos::leerYEscribir | modos::crear | modos::soloNuevo, 0600));
    if (!pasos_.Abierto()) throw FalloDeArchivo(errno, ruta);
}

void NotasDeEnsayo::EmpezarDiario() {
    diario_ = ArchivoAbierto(Diario());
    directorio_.reset();
}

void NotasDeEnsayo::AbrirPasada(std::size_t registro, std::uint64_t lugar) {
    pasadas_.push_back({lugar, escritos_ + bloque_.size(), 0, 0, registro});
    abierta_ = true;
}

void NotasDeEnsayo::CerrarPasada(std::uint64_t lugar) {
    if (!abierta_) return;
    abierta_ = false;
    auto& pasada = pasadas_.back();
    // A journal that could not be written ends before the place that was told.
    pasada.largoDeDiario = std::max(lugar, pasada.diario) - pasada.diario;
    pasada.largoDePasos = escritos_ + bloque_.size() - pasada.pasos;
    if (pasada.registro == 0 && pasada.largoDeDiario == 0) pasadas_.pop_back();
}

void NotasDeEnsayo::Terminar() {
    CerrarPasada(diario_.Abierto() ? diario_.Identidad().tamano : 0);
    Vaciar();
    std::stable_sort(pasadas_.begin(), pasadas_.end(),
                     [](const auto& una, const auto& otra) { return una.registro < otra.registro; });
}

void NotasDeEnsayo::Anotar(const Paso& paso) {
    if (!abierta_) return;
    bloque_.append(reinterpret_cast<const char*>(&paso), sizeof paso);
    if (bloque_.size() >= bloqueLleno) Vaciar();
}

void NotasDeEnsayo::AnotarEvento(bool fallo, std::string_view texto) {
    const auto corto = texto.substr(0, std::numeric_limits<std::uint16_t>::max());
    const auto marcas = (fallo ? Paso::fallo : 0) | (corto.empty() ? 0 : Paso::conTexto);
    Anotar({0, static_cast<std::uint16_t>(corto.size()), Paso::Clase::Evento, static_cast<std::uint8_t>(marcas)});
    if (corto.empty() || !abierta_) return;
    bloque_.append(corto).append(ConRelleno(corto.size()) - corto.size(), '\0');
}

void NotasDeEnsayo::Vaciar() {
    for (std::size_t desde = 0; desde < bloque_.size();) {
        const auto cuantos = llamadas::Escribir(pasos_.Valor(), bloque_.data() + desde, bloque_.size() - desde);
        if (cuantos < 0) throw FalloDeArchivo(errno, std::filesystem::temp_directory_path());
        desde += static_cast<std::size_t>(cuantos);
    }
    escritos_ += bloque_.size();
    bloque_.clear();
}

template <class Hacer>
void NotasDeEnsayo::CadaPasada(std::size_t registro, Hacer hacer) const {
    const auto menor = [](const Pasada& pasada, std::size_t numero) { return pasada.registro < numero; };
    for (auto i = std::lower_bound(pasadas_.begin(), pasadas_.end(), registro, menor);
         i != pasadas_.end() && i->registro == registro; ++i) {
        std::string pasos(i->largoDePasos, '\0');
        std::size_t leidos = 0;
        while (leidos < pasos.size()) {
            const auto cuantos = llamadas::LeerEn(pasos_.Valor(), pasos.data() + leidos, pasos.size() - leidos,
                                                  static_cast<std::int64_t>(i->pasos + leidos));
            if (cuantos <= 0) break;
            leidos += static_cast<std::size_t>(cuantos);
        }
        pasos.resize(leidos);
        hacer(*i, std::move(pasos));
    }
}

std::vector<NotasDePasada> NotasDeEnsayo::De(std::size_t registro) const {
    std::vector<NotasDePasada> notas;
    CadaPasada(registro, [&](const Pasada& pasada, std::string pasos) {
        std::string lineas(pasada.largoDeDiario, '\0');
        if (diario_.Abierto()) lineas.resize(diario_.LeerEn(lineas.data(), lineas.size(), pasada.diario));
        notas.push_back({std::move(lineas), std::move(pasos)});
    });
    return notas;
}

std::vector<std::string> NotasDeEnsayo::PasosDe(std::size_t registro) const {
    std::vector<std::string> todos;
    CadaPasada(registro, [&](const Pasada&, std::string pasos) { todos.push_back(std::move(pasos)); });
    return todos;
}

}  // namespace qor

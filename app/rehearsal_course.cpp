#include "app/rehearsal_course.h"

#include <algorithm>
#include <string>

namespace qor {

namespace {

// A record that was begun comes to its end, unless it takes longer than that: about a second's work.
constexpr int preguntasHastaCortar = 16;
// A record that fills the journal with more than that has lost its way, and would fill the disk.
constexpr std::uint64_t maximoPorRegistro = std::uint64_t{256} << 20;

}  // namespace

void CursoDeEnsayo::Empezar() { notas_.AbrirPasada(0, LugarEnDiario()); }

void CursoDeEnsayo::Terminar(std::size_t filas) {
    CerrarRegistro();
    estados_.resize(std::max(estados_.size(), filas));
    notas_.Terminar();
}

void CursoDeEnsayo::CerrarRegistro() {
    if (abierto_ == 0) return;
    auto& estado = estados_[abierto_ - 1];
    estado = Fallado() ? EstadoDeRegistro::Fallado : enSesion_ ? EstadoDeRegistro::EnSesion : EstadoDeRegistro::Contabilizado;
    abierto_ = 0;
}

bool CursoDeEnsayo::Registro(std::size_t numero) {
    CerrarRegistro();
    notas_.CerrarPasada(LugarEnDiario());
    if (estados_.size() < numero) estados_.resize(numero);
    if (!Curso::Registro(numero)) return false;
    lugar_ = LugarEnDiario();
    notas_.AbrirPasada(numero, lugar_);
    abierto_ = numero;
    enSesion_ = false;
    preguntas_ = 0;
    return true;
}

void CursoDeEnsayo::FinDeRegistros() {
    CerrarRegistro();
    notas_.CerrarPasada(LugarEnDiario());
    Curso::FinDeRegistros();
    notas_.AbrirPasada(0, LugarEnDiario());
}

bool CursoDeEnsayo::Detener() {
    if (Curso::Detener()) return true;
    if (abierto_ != 0 && LugarEnDiario() > lugar_ + maximoPorRegistro)
        return Cortar("It goes on without an end: the journal of this record alone has become larger than 256 MB.");
    return Parado() && ++preguntas_ >= preguntasHastaCortar && Cortar("The rehearsal was stopped in its midst.");
}

bool CursoDeEnsayo::Cortar(const char* motivo) {
    cortado_ = RegistroActual();
    motivo_ = motivo;
    Fallar();
    return true;
}

void CursoDeEnsayo::Transaccion(const TransaccionProbada& transaccion) {
    Curso::Transaccion(transaccion);
    notas_.AnotarEvento(transaccion.subrc != 0, {});
}

void CursoDeEnsayo::InsertaEnSesion(const TransaccionProbada& transaccion) {
    Curso::InsertaEnSesion(transaccion);
    enSesion_ = true;
    notas_.AnotarEvento(transaccion.subrc != 0, {});
}

void CursoDeEnsayo::Bapi(const LlamadaDeBapi& llamada) {
    Curso::Bapi(llamada);
    std::string texto;
    for (const auto& mensaje : llamada.mensajes) {
        texto.append(1, mensaje.tipo).append(" ").append(mensaje.id).append(" ").append(mensaje.numero).append(" ");
        texto += mensaje.texto;
    }
    notas_.AnotarEvento(llamada.fallo, texto);
}

}  // namespace qor

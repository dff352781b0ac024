#include "practice/course.h"

#include "practice/messages.h"

namespace qor {

std::string LineaDeResumen(const CuentaDeCorrida& cuenta) {
    const auto n = [](std::size_t numero) { return std::to_string(numero); };
    return n(cuenta.registros) + " records, " + n(cuenta.Contabilizados()) + " posted, " + n(cuenta.fallados) + " failed, " +
           n(cuenta.transacciones) + " transactions called, " + n(cuenta.insertadas) + " put into " + n(cuenta.sesiones) +
           " sessions, " + n(cuenta.bapis) + " BAPI calls";
}

bool Curso::Registro(std::size_t numero) {
    registro_ = 0;
    fallado_ = false;
    if (parado_ || !tramo_.Tiene(numero)) return false;
    if (oyente_.Avanza(cuenta_)) {
        parado_ = true;
        return false;
    }
    registro_ = numero;
    fallado_ = fallados_.contains(numero);
    if (numero > masAlto_) {  // rows come in their order: one that is met again has had its pass
        masAlto_ = numero;
        ++cuenta_.registros;
    }
    return true;
}

bool Curso::Detener() {
    if (!parado_) parado_ = oyente_.Avanza(cuenta_);
    return parado_ && registro_ == 0;
}

void Curso::Fallar() {
    if (registro_ == 0 || fallado_) return;
    fallado_ = true;
    fallados_.insert(registro_);
    ++cuenta_.fallados;
}

void Curso::Volcar(const VolcadoDicho& volcado, const OrigenEnDiario& origen) {
    Fallar();
    if (diario_ != nullptr) diario_->Volcado(registro_, volcado, origen);
}

void Curso::Mensaje(char tipo, std::string_view id, std::string_view numero, std::span<const std::string> variables) {
    Paso();
    const auto texto = TextoDeMensaje(id, numero, variables);
    oyente_.Mensaje(registro_, tipo, texto);
    if (diario_ != nullptr) diario_->Mensaje(registro_, tipo, texto);
}

void Curso::Transaccion(const TransaccionProbada& transaccion) {
    ++cuenta_.transacciones;
    Contar(transaccion);
    if (diario_ != nullptr) diario_->Transaccion(registro_, transaccion);
}

void Curso::InsertaEnSesion(const TransaccionProbada& transaccion) {
    ++cuenta_.insertadas;
    Contar(transaccion);
    if (diario_ != nullptr) diario_->InsertaEnSesion(registro_, transaccion);
}

void Curso::AbreSesion(const SesionAbierta& sesion) {
    Paso();
    ++cuenta_.sesiones;
    if (diario_ != nullptr) diario_->AbreSesion(registro_, sesion);
}

void Curso::CierraSesion(std::string_view grupo, std::size_t transacciones) {
    Paso();
    if (diario_ != nullptr) diario_->CierraSesion(registro_, grupo, transacciones);
}

void Curso::Bapi(const LlamadaDeBapi& llamada) {
    Paso();
    ++cuenta_.bapis;
    if (llamada.fallo) {
        const MensajeDicho ninguno;
        ContarFallo({registro_, llamada.llamada.nombre, true, llamada.mensajes.empty() ? ninguno : llamada.mensajes.front(),
                     llamada.lugar});
    }
    if (diario_ != nullptr) diario_->Bapi(registro_, llamada);
}

void Curso::Confirma() {
    Paso();
    if (diario_ != nullptr) diario_->Confirma(registro_);
}

void Curso::Deshace() {
    Paso();
    if (diario_ != nullptr) diario_->Deshace(registro_);
}

void Curso::Inserta(const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila) {
    Paso();
    if (diario_ != nullptr) diario_->Inserta(registro_, tabla, fila);
}

void Curso::Actualiza(std::string_view tabla, std::int64_t filas) {
    Paso();
    if (diario_ != nullptr) diario_->Actualiza(registro_, tabla, filas);
}

void Curso::Borra(std::string_view tabla, std::int64_t filas) {
    Paso();
    if (diario_ != nullptr) diario_->Borra(registro_, tabla, filas);
}

void Curso::ArchivoSinLeer(std::string_view nombre, std::string_view motivo) {
    cuenta_.archivoSinLeer = true;
    oyente_.ArchivoSinLeer(nombre, motivo);
}

const FalloPedido* Curso::Pedido() const {
    if (registro_ == 0 || encargos_.empty()) return nullptr;
    const auto encargo = encargos_.find(registro_);
    return encargo == encargos_.end() ? nullptr : &encargo->second;
}

void Curso::Contar(const TransaccionProbada& transaccion) {
    Paso();
    if (transaccion.subrc == 0) return;
    ContarFallo({registro_, transaccion.transaccion, false, transaccion.mensajes.back(), transaccion.lugar});
}

void Curso::ContarFallo(const FalloDeRegistro& fallo) {
    Fallar();
    oyente_.Falla(fallo);
}

void Curso::Paso() {
    if (ejecucion_ != nullptr) ejecucion_->Progreso();
}

}  // namespace qor

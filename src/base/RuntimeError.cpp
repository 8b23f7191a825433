#include "base/RuntimeError.hpp"

#include <utility>

namespace karvel {

std::string_view errorText(ErrorNumber number)
{
    switch (number) {
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::TypeMismatch:
            return "Tipo non corrispondente";
        case ErrorNumber::BadFileName:
            return "Nome o numero di file errato";
        case ErrorNumber::FileNotFound:
            return "File non trovato";
        case ErrorNumber::FileAlreadyOpen:
            return "File già aperto";
        case ErrorNumber::DeviceIo:
            return "Errore di I/O su periferica";
        case ErrorNumber::DiskFull:
            return "Disco pieno";
        case ErrorNumber::InputPastEnd:
            return "Input oltre la fine del file";
        case ErrorNumber::PermissionDenied:
            return "Autorizzazione negata";
        case ErrorNumber::PathFileAccess:
            return "Errore di accesso al percorso/file";
        case ErrorNumber::PathNotFound:
            return "Percorso non trovato";
    }
    return "";
}

RuntimeError::RuntimeError(ErrorNumber number, std::string furtherLine)
    : std::runtime_error(std::string(errorText(number))),
      number_(number),
      furtherLine_(std::move(furtherLine))
{
}

}  // namespace karvel

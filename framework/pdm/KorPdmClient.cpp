#include "framework/pdm/KorPdmClient.h"

namespace {

KorPdmTransport* g_transport = nullptr;
KorPdmClient::Observer* g_observer = nullptr;

/// Tells the observer of the start and, however the command ends, of the end.
class ObservedCommand {
 public:
  explicit ObservedCommand(const KorUnicodeString& command) : _command(command), _observer(g_observer) {
    if (_observer) _observer->CommandStarted(_command);
  }
  ~ObservedCommand() {
    if (_observer) _observer->CommandEnded(_command, _reply);
  }
  void Answered(const KorUnicodeString& reply) { _reply = reply; }
  ObservedCommand(const ObservedCommand&) = delete;
  ObservedCommand& operator=(const ObservedCommand&) = delete;

 private:
  const KorUnicodeString& _command;
  KorUnicodeString _reply;
  KorPdmClient::Observer* _observer;
};

}  // namespace

KorPdmTransport::~KorPdmTransport() = default;

HRESULT BuildVariant(const KorUnicodeString& text, VARIANT& variant) {
  variant.text = text;
  return S_OK;
}

HRESULT BuildVariant(const char* text, VARIANT& variant) {
  return BuildVariant(KorUnicodeString(text), variant);
}

HRESULT ConvertVariant(const VARIANT& variant, KorUnicodeString& text) {
  text = variant.text;
  return S_OK;
}

HRESULT RunServerCode(const KorUnicodeString& command, const VARIANT& request, VARIANT& reply) {
  if (!g_transport) return E_FAIL;
  ObservedCommand observed(command);
  reply.text = g_transport->Run(command.Utf8(), request.text.Utf8());
  observed.Answered(reply.text);
  return S_OK;
}

void KorPdmClient::SetTransport(KorPdmTransport* transport) { g_transport = transport; }

KorPdmTransport* KorPdmClient::GetTransport() { return g_transport; }

void KorPdmClient::SetObserver(Observer* observer) { g_observer = observer; }

#pragma once

#include "framework/pdm/KorPdmTransport.h"
#include "framework/system/KorStatus.h"
#include "framework/system/KorUnicodeString.h"

/// The value that carries a request or reply through RunServerCode.
struct VARIANT {
  KorUnicodeString text;
};

KOR_FRAMEWORK_API HRESULT BuildVariant(const KorUnicodeString& text, VARIANT& variant);
KOR_FRAMEWORK_API HRESULT BuildVariant(const char* text, VARIANT& variant);
KOR_FRAMEWORK_API HRESULT ConvertVariant(const VARIANT& variant, KorUnicodeString& text);

/// Runs a command on the server and waits. E_FAIL, with `reply` left alone, when there is no transport.
KOR_FRAMEWORK_API HRESULT RunServerCode(const KorUnicodeString& command, const VARIANT& request,
                                        VARIANT& reply);

/// Which server the client speaks to.
class KOR_FRAMEWORK_API KorPdmClient {
 public:
  /// Null disconnects. The transport must outlive its use here.
  static void SetTransport(KorPdmTransport* transport);
  static KorPdmTransport* GetTransport();

  /// Told when a command starts and ends, so that the window can say so. Null: nobody.
  class Observer {
   public:
    virtual ~Observer() = default;
    virtual void CommandStarted(const KorUnicodeString& command) = 0;
    /// `reply` is what the server answered; empty when it did not come to answer.
    virtual void CommandEnded(const KorUnicodeString& command, const KorUnicodeString& reply) = 0;
  };
  static void SetObserver(Observer* observer);
};

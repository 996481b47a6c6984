// The multistatus reader on any bytes: it never crashes, reads only status codes it can name,
// and a body it refuses leaves nothing behind. The error-body reader and the status-line reader
// get the same bytes.
#include "sync/davxml.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace carddav::davxml;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray body(reinterpret_cast<const char*>(data), qsizetype(size));
    MultiStatus ms;
    QString error;
    if (readMultiStatus(body, &ms, &error)) {
        for (const Response& r : ms.responses) {
            if (r.status != 0 && (r.status < 100 || r.status > 599)) std::abort();
            if ((!r.hasEtag && !r.etag.isEmpty()) || (!r.hasAddressData && !r.addressData.isEmpty()))
                std::abort();
        }
    } else if (!ms.responses.isEmpty() || !ms.syncToken.isEmpty() || error.isEmpty()) {
        std::fprintf(stderr, "refused without a reason, or with responses left\n");
        std::abort();
    }
    (void)readErrorConditions(body);
    const int status = statusOfLine(QString::fromUtf8(body));
    if (status != 0 && (status < 100 || status > 599)) std::abort();
    return 0;
}

// Java applications' reservation of a device web service for a client host, and its release.
// Stateless: one web service facade call per operation, its code turned into the library's
// small result code (0 success ... 6 communication failed).
#ifndef TARNWICK_ZEL_FND_WEBSERVICE_PROXY_H
#define TARNWICK_ZEL_FND_WEBSERVICE_PROXY_H

#include <string>

#include "esv_zel_webservice_facade.h"

namespace tarnwick {

/**
 * Reservation of one of the device's web services for a client host, and its release.
 * <p>Results: 0 success, 1 bad parameter, 2 no such service, 3 already reserved, 4 reserved by
 * another host, 5 failed (also for any answer the library does not know), 6 communication with
 * the service failed.
 */
class zel_fnd_webservice_proxy {
public:
    zel_fnd_webservice_proxy();
    virtual ~zel_fnd_webservice_proxy();

    int reserve(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name);
    int release(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name);
    int convert_retcode(long code);
};

}  // namespace tarnwick

#endif

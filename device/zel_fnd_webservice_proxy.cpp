#include "zel_fnd_webservice_proxy.h"

#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_webservice_proxy"

namespace tarnwick {

namespace {

esv_zel_webservice_facade* facade() { return esv_zel_webservice_facade::esv_zel_webservice_get_instance(); }

}  // namespace

zel_fnd_webservice_proxy::zel_fnd_webservice_proxy() {}

zel_fnd_webservice_proxy::~zel_fnd_webservice_proxy() {}

int zel_fnd_webservice_proxy::reserve(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name) {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = facade()->esv_zel_webservice_reserve(kind, name);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

int zel_fnd_webservice_proxy::release(ESV_ZEL_WEBSERVICE_KIND kind, std::string const& name) {
    CMT_TRACE(kTraceFlow, "[Start]");
    long rc = facade()->esv_zel_webservice_release(kind, name);
    CMT_TRACE(kTraceFlow, "[End]");
    return convert_retcode(rc);
}

// An unknown code is reported as 5, the same as the facade's own failure.
int zel_fnd_webservice_proxy::convert_retcode(long code) {
    switch (code) {
    case ESV_ZEL_WEBSERVICE_OK:
        CMT_TRACE(kTraceFlow, "result = ESV_ZEL_WEBSERVICE_OK");
        return 0;
    case ESV_ZEL_WEBSERVICE_ERROR_PARAMETER:
        CMT_TRACE(kTraceFlow, "result = ESV_ZEL_WEBSERVICE_ERROR_PARAMETER");
        return 1;
    case ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE:
        CMT_TRACE(kTraceFlow, "result = ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE");
        return 2;
    case ESV_ZEL_WEBSERVICE_ERROR_ALREADY_RESERVED:
        CMT_TRACE(kTraceFlow, "result = ESV_ZEL_WEBSERVICE_ERROR_ALREADY_RESERVED");
        return 3;
    case ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST:
        CMT_TRACE(kTraceFlow, "result = ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST");
        return 4;
    case ESV_ZEL_WEBSERVICE_ERROR_FAILED:
        CMT_TRACE(kTraceFlow, "result = ESV_ZEL_WEBSERVICE_ERROR_FAILED");
        return 5;
    case ESV_ZEL_WEBSERVICE_ERROR_IPC:
        CMT_TRACE(kTraceFlow, "result = ESV_ZEL_WEBSERVICE_ERROR_IPC");
        return 6;
    default:
        CMT_TRACE(kTraceFlow, "result = ZEL_FND_WEBSERVICE_ERROR_FAILED");
        return 5;
    }
}

}  // namespace tarnwick

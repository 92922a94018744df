#include "zel_fnd_webservice_proxy.h"

#include <iterator>

#include "cmt_retcode.h"
#include "cmt_trace.h"

#define CMT_TRACE_MODULE "zel_fnd_webservice_proxy"

namespace tarnwick {

namespace {

esv_zel_webservice_facade* facade() { return esv_zel_webservice_facade::esv_zel_webservice_get_instance(); }

const cmt_retcode_row kResults[] = {
    CMT_RETCODE_ROW(ESV_ZEL_WEBSERVICE_OK, 0),
    CMT_RETCODE_ROW(ESV_ZEL_WEBSERVICE_ERROR_PARAMETER, 1),
    CMT_RETCODE_ROW(ESV_ZEL_WEBSERVICE_ERROR_INVALID_SERVICE, 2),
    CMT_RETCODE_ROW(ESV_ZEL_WEBSERVICE_ERROR_ALREADY_RESERVED, 3),
    CMT_RETCODE_ROW(ESV_ZEL_WEBSERVICE_ERROR_DIFFERENT_HOST, 4),
    CMT_RETCODE_ROW(ESV_ZEL_WEBSERVICE_ERROR_FAILED, 5),
    CMT_RETCODE_ROW(ESV_ZEL_WEBSERVICE_ERROR_IPC, 6),
};
// An unknown code is reported as 5, the same as the facade's own failure.
const cmt_retcode_table kConversion{CMT_TRACE_MODULE, kResults, std::size(kResults), "result = %s",
                                    "result = ZEL_FND_WEBSERVICE_ERROR_FAILED", kTraceFlow, 5};

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

int zel_fnd_webservice_proxy::convert_retcode(long code) { return cmt_convert_retcode(kConversion, code); }

}  // namespace tarnwick

long new_zel_fnd_webservice_proxy()
void delete_zel_fnd_webservice_proxy(long)
int zel_fnd_webservice_proxy_reserve(long, zel_fnd_webservice_proxy, int, String)
int zel_fnd_webservice_proxy_release(long, zel_fnd_webservice_proxy, int, String)

#!/usr/bin/env python3
"""The API reference in the kit (made by scripts/sdk.sh with the JDK's javadoc, which fails on
any error): an overview for every package, a summary for every public class, and the meaning of
the numbers a caller passes or tests (authentication modes, result codes, search types)."""
import argparse, glob, html, os, re, sys

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from demo_support import Checks, run  # noqa: E402


def text(s):
    return html.unescape(re.sub(r"<[^>]+>", "", s))


def class_pages(api):
    skip = {"index.html", "overview-summary.html", "overview-tree.html", "package-summary.html", "package-tree.html",
            "package-use.html", "allclasses-index.html", "allpackages-index.html", "constant-values.html",
            "deprecated-list.html", "help-doc.html", "index-all.html", "serialized-form.html", "search.html"}
    for path in glob.glob(os.path.join(api, "tarnwick", "**", "*.html"), recursive=True):
        if os.path.basename(path) not in skip and "class-use" not in path:
            yield path


def description(page):
    """The text of a class page's description block ("" when there is none)."""
    m = re.search(r'<section class="class-description".*?</section>', page, re.S)
    if not m:
        return ""
    block = re.search(r'<div class="block">(.*?)</div>', m.group(0), re.S)
    return text(block.group(1)).strip() if block else ""


def member(page, name):
    """The description of a member (method or field) of a class page."""
    m = re.search(r'<section class="detail" id="' + re.escape(name) + r'[^"]*">(.*?)</section>', page, re.S)
    if not m:
        return ""
    block = re.search(r'<div class="block">(.*?)</div>', m.group(1), re.S)
    return text(block.group(1)).strip() if block else ""


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--kit", required=True)
    ap.add_argument("--list", action="store_true", help="list every class without a summary")
    a = ap.parse_args()
    check = Checks(keep_going=True)
    missing_classes, missing_packages = [], []
    classes = 0
    for artifact in ("tovrcmt", "tovrsim"):
        api = os.path.join(a.kit, "docs", "api", artifact)
        log = open(os.path.join(a.kit, "docs", "api", artifact + ".javadoc.log")).read()
        check("error" not in log, f"{artifact}: javadoc reported no error")
        for path in glob.glob(os.path.join(api, "tarnwick", "**", "package-summary.html"), recursive=True):
            page = open(path).read()
            m = re.search(r'<section class="package-description".*?<div class="block">(.*?)</div>', page, re.S)
            if not m or len(text(m.group(1)).strip()) < 20:
                missing_packages.append(os.path.relpath(os.path.dirname(path), api).replace("/", "."))
        for path in class_pages(api):
            classes += 1
            if len(description(open(path).read())) < 15:
                missing_classes.append(os.path.relpath(path, api)[:-5].replace("/", "."))
    if a.list:
        print("\n".join(missing_packages + missing_classes))
    check(not missing_packages, f"every package has an overview (without: {', '.join(missing_packages[:8])})")
    check(classes > 150 and not missing_classes,
          f"every public class of {classes} has a summary (without: {len(missing_classes)}, e.g. {', '.join(missing_classes[:6])})")

    api = os.path.join(a.kit, "docs", "api", "tovrcmt", "tarnwick", "zel", "wrapper")

    def page(rel):
        p = os.path.join(api, rel)
        return open(p).read() if os.path.exists(p) else ""

    modes = page("user/ESV_ZEL_USER_AUTHMODE.html")
    for constant, words in [("ESV_ZEL_USER_AUTHMODE_OFF", "no"), ("ESV_ZEL_USER_AUTHMODE_LOCAL", "local"),
                            ("ESV_ZEL_USER_AUTHMODE_NETWORK", "network")]:
        check(words in member(modes, constant).lower(), f"authentication mode {constant} says what it means: "
              f"\"{member(modes, constant)[:60]}\"")
    auth = description(page("user/zel_fnd_authentication.html"))
    check(all(w in auth for w in ("0", "1", "2", "4")) and "wrong password" in auth.lower(),
          f"the authentication's result codes are listed: \"{auth[:120]}\"")
    search = member(page("address/cmt_address_book.html"), "search_address(int,java.lang.Object)")
    check("1" in search and "personal" in search.lower(), f"the address book's search type is explained: \"{search[:100]}\"")
    job = description(page("job/zel_fnd_job_proxy.html"))
    check("result" in job.lower() and "0" in job, f"the job proxy's results are explained: \"{job[:100]}\"")
    storage = description(page("storage/CMT_StorageIO.html"))
    check("-1" in storage and "drive" in storage.lower(), f"the storage module's types and results are explained: \"{storage[:100]}\"")
    return check.result("the API reference")


if __name__ == "__main__":
    run(main)

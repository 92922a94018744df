#!/usr/bin/env python3
"""The developer kit made by scripts/sdk.sh (from a built tree): its Maven layout, its native
libraries (which find each other wherever the kit is), examples/hello compiled and run against
the kit alone, and how the module classes load the library (no System.loadLibrary in the
application; a library loaded by path first; a missing library)."""
import argparse, os, re, shutil, subprocess, sys, tempfile, zipfile

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from demo_support import Checks, run  # noqa: E402

HELLO = """init: 0
login alice: result 0, certificate 7001
address: Dana Dunn <dana@example.org>
box /Sales: contract-draft.pdf, 1204551 bytes
box /Sales: price-list.pdf, 482113 bytes
logout: result 0
"""


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--source", required=True)
    ap.add_argument("--build", required=True)
    ap.add_argument("--kit", required=True)
    ap.add_argument("--jdk", required=True)
    a = ap.parse_args()
    check = Checks()
    java, javac = os.path.join(a.jdk, "bin", "java"), os.path.join(a.jdk, "bin", "javac")
    here = os.path.dirname(os.path.abspath(__file__))

    r = subprocess.run([os.path.join(a.source, "scripts", "sdk.sh"), "--no-build", "--build", a.build, "--out", a.kit],
                       capture_output=True, text=True, timeout=300)
    print(r.stdout + r.stderr)
    check(r.returncode == 0, f"scripts/sdk.sh made the kit (exit {r.returncode})")
    stages = [l for l in r.stdout.splitlines() if re.match(r"sdk: \[\d/5\]", l)]
    check(len(stages) == 5, "one line for each of its five stages")
    check(re.search(r"tovrcmt: \d+ source files, 0 errors", r.stdout) and re.search(r"tovrsim: \d+ source files, 0 errors", r.stdout),
          "javadoc made both API references without an error")

    version = "1.0.0"
    for artifact in ("tovrcmt", "tovrsim"):
        d = os.path.join(a.kit, "repository", "tarnwick", artifact, version)
        for suffix in (".pom", ".jar", "-sources.jar", "-javadoc.jar"):
            f = os.path.join(d, f"{artifact}-{version}{suffix}")
            check(os.path.isfile(f) and os.path.isfile(f + ".sha1"), f"{os.path.relpath(f, a.kit)} (with .sha1)")
        pom = open(os.path.join(d, f"{artifact}-{version}.pom")).read()
        check(f"<groupId>tarnwick</groupId>" in pom and f"<artifactId>{artifact}</artifactId>" in pom
              and f"<version>{version}</version>" in pom, f"{artifact}: the pom names tarnwick:{artifact}:{version}")
        names = zipfile.ZipFile(os.path.join(d, f"{artifact}-{version}-sources.jar")).namelist()
        check(any(n.endswith(".java") for n in names), f"{artifact}: the sources jar holds sources ({len(names)} entries)")
        names = zipfile.ZipFile(os.path.join(d, f"{artifact}-{version}-javadoc.jar")).namelist()
        check("index.html" in names, f"{artifact}: the javadoc jar holds the reference")
    sources = zipfile.ZipFile(os.path.join(a.kit, "repository/tarnwick/tovrcmt", version, f"tovrcmt-{version}-sources.jar")).namelist()
    check("tarnwick/zel/wrapper/job/zel_fnd_job_proxy.java" in sources and "tarnwick/zel/wrapper/job/package-info.java" in sources,
          "the library's sources: the generated module classes with their package overviews")
    for lib in ("libtovrCMT.so", "libtovrsim.so", "libtovrsimctl.so"):
        f = os.path.join(a.kit, "lib", lib)
        dyn = subprocess.run(["readelf", "-d", f], capture_output=True, text=True).stdout
        check(os.path.isfile(f) and (lib == "libtovrsim.so" or "[$ORIGIN]" in dyn), f"lib/{lib}" + ("" if lib == "libtovrsim.so" else " finds its neighbours ($ORIGIN)"))
    readme = open(os.path.join(a.kit, "README.md")).read()
    check('implementation("tarnwick:tovrcmt:1.0.0")' in readme and "<artifactId>tovrcmt</artifactId>" in readme
          and f"java -Djava.library.path={a.kit}/lib" in readme.replace("$kit", a.kit), "the README gives the Gradle and Maven coordinates and the java command")

    # examples/hello against the kit alone, the kit moved elsewhere (no path of the build in it).
    with tempfile.TemporaryDirectory(prefix="kit-test-") as tmp:
        kit = os.path.join(tmp, "kit")
        shutil.copytree(a.kit, kit, symlinks=True)
        repo = os.path.join(kit, "repository", "tarnwick")
        cp = f"{repo}/tovrcmt/{version}/tovrcmt-{version}.jar:{repo}/tovrsim/{version}/tovrsim-{version}.jar"
        classes = os.path.join(tmp, "classes")
        r = subprocess.run([javac, "-d", classes, "-cp", cp, os.path.join(a.source, "examples", "hello", "Hello.java"),
                            os.path.join(here, "LoaderCheck.java")], capture_output=True, text=True, timeout=120)
        check(r.returncode == 0, f"examples/hello compiles against the kit's jars alone {r.stderr[-300:]}")
        lines = len(open(os.path.join(a.source, "examples", "hello", "Hello.java")).read().splitlines())
        check(lines <= 45, f"Hello.java is {lines} lines")
        env = dict(os.environ, LD_LIBRARY_PATH="")
        r = subprocess.run([java, "-Xcheck:jni", f"-Djava.library.path={kit}/lib", "-cp", f"{cp}:{classes}", "Hello"],
                           capture_output=True, text=True, timeout=120, env=env)
        print(r.stdout + r.stderr)
        check(r.returncode == 0 and r.stdout == HELLO and "WARNING" not in r.stderr, "Hello runs against the kit (moved) and says what it should")

        def loader(*args, libpath):
            return subprocess.run([java, "-Xcheck:jni", f"-Djava.library.path={libpath}", "-cp", f"{cp}:{classes}", "LoaderCheck", *args],
                                  capture_output=True, text=True, timeout=60, env=env)

        r = loader("by-path", f"{kit}/lib/libtovrCMT.so", libpath="/nonexistent")
        check(r.returncode == 0 and r.stdout.strip() == "year 2009",
              f"a library loaded by path first (not on java.library.path) serves the modules: {r.stdout.strip()} {r.stderr[-200:]}")
        r = loader("none", libpath="/nonexistent")
        out = r.stdout.strip().splitlines()
        check(out[:1] == ["java.lang.UnsatisfiedLinkError: libtovrCMT.so is not on java.library.path (/nonexistent): "
                          "start java with -Djava.library.path=<the folder that holds libtovrCMT.so>"],
              f"a missing library: one message naming java.library.path ({out[:1]})")
    return check.result("the developer kit")


if __name__ == "__main__":
    run(main)

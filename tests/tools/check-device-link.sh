#!/usr/bin/env bash
# The device build links against no platform library: the platform's symbols stay undefined
# for the device's loader, and nothing of the simulated device is inside.
set -euo pipefail
lib=$1
nm=powerpc-linux-gnu-nm
command -v "$nm" >/dev/null || nm=nm
undefined=$("$nm" -D --undefined-only "$lib" | awk '{print $2}')
for sym in sys_prcm_lib_process_init emwCLBLocalTime_r JNI_GetCreatedJavaVMs; do
  grep -qx "$sym" <<<"$undefined" || { echo "device build: $sym is not left to the loader"; exit 1; }
done
# Platform functions, facades and the simulated device are never defined inside the library.
if "$nm" -D --defined-only "$lib" | awk '{print $3}' | grep -E '^(emw|sys_prcm|OSW_)|esv_zel_[a-z]+_facade|tovr_sim'; then
  echo "device build: platform or simulated device code inside the library"; exit 1
fi
# The interface only: the Java_ functions and CJvm (the version script of the export lists).
if "$nm" -D --defined-only "$lib" | awk '{print $3}' | grep -v -E '^(Java_|_ZN8tarnwick4CJvm)'; then
  echo "device build: exports more than its interface"; exit 1
fi
if readelf -d "$lib" | grep NEEDED | grep -q -E 'tovrsim|jvm'; then
  echo "device build: links a simulated-device or JVM library"; exit 1
fi
echo "device build: $(basename "$lib") links only the C++ runtime; platform left to the loader"

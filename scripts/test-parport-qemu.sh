#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Tests the printer port through Linux's own drivers, and directly: boots Debian's kernel in a
# virtual PC with a printer port and runs tests-real-port there. Installs what is missing; fetches
# the kernel at the first run and keeps it in build/qemu. Fails when a test does, or when the virtual
# machine does not get to the tests' end.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh

kernel=build/qemu/kernel
root=build/qemu/root
image=build/qemu/initramfs.gz
log=build/qemu/guest.log
modules=(parport/parport parport/parport_pc char/ppdev char/lp)

# DownloadKernel FOLDER: the package that linux-image-amd64 stands for today. As root apt would
# otherwise warn that its own user may not write there.
DownloadKernel() {
    local package
    package=$(apt-cache depends linux-image-amd64 | awk '/Depends:/ { print $2; exit }')
    (cd "$1" && apt-get -qq -o APT::Sandbox::User=root download "$package")
}

# Leaves the kernel's image and the port's modules in build/qemu.
FetchKernel() {
    local fetched=build/qemu/fetched module wanted=('./boot/vmlinuz-*')
    [ ! -d "$kernel" ] || return 0
    Say "Fetching Debian's kernel ..."
    rm -rf "$fetched"
    mkdir -p "$fetched"
    DownloadKernel "$fetched" 2>/dev/null || {
        AsRoot apt-get -qq update
        DownloadKernel "$fetched"
    }
    for module in "${modules[@]}"; do
        wanted+=("./lib/modules/*/kernel/drivers/$module.ko*")
    done
    dpkg-deb --fsys-tarfile "$fetched"/*.deb | tar -x -C "$fetched" --wildcards "${wanted[@]}"
    rm "$fetched"/*.deb
    mv "$fetched" "$kernel"
}

# The virtual machine's whole file system: a shell, the modules and the tests.
MakeImage() {
    rm -rf "$root"
    mkdir -p "$root"/{bin,sbin,usr/bin,usr/sbin,dev,etc,proc,sys}
    cp -r "$kernel/lib" "$root/lib"
    cp "$(command -v busybox)" "$root/bin/busybox"
    busybox depmod -b "$root" "$(ls "$root/lib/modules")"
    strip -o "$root/bin/tests-real-port" build/debug/bin/tests-real-port
    printf '%s\n' 'root:x:0:0::/:/bin/sh' 'nobody:x:65534:65534::/:/bin/sh' >"$root/etc/passwd"
    printf '%s\n' 'root:x:0:' 'lp:x:7:' 'nogroup:x:65534:' >"$root/etc/group"
    cat >"$root/init" <<'INIT'
#!/bin/busybox sh
/bin/busybox --install -s
mount -t devtmpfs dev /dev
mount -t proc proc /proc
mount -t sysfs sys /sys
GTEST_COLOR=no tests-real-port
echo "The tests ended with $?."
poweroff -f
INIT
    chmod +x "$root/init"
    (cd "$root" && find . | busybox cpio -o -H newc 2>/dev/null) | gzip -1 >"$image"
}

# Nothing is behind the port: its status lines stand still. Emulated, for a machine that is itself
# virtual.
RunMachine() {
    timeout --foreground 180 qemu-system-x86_64 -M pc -accel tcg -m 256 \
        -kernel "$kernel"/boot/vmlinuz-* -initrd "$image" \
        -append "console=ttyS0 quiet panic=-1" \
        -nodefaults -display none -no-reboot -serial stdio \
        -chardev null,id=port -device isa-parallel,chardev=port,iobase=0x378,irq=7 </dev/null |
        sed -u 's/\r$//' | tee "$log"
}

if ! command -v apt-get >/dev/null; then
    Say "The kernel comes from Debian's packages: this needs apt-get and dpkg-deb."
    exit 1
fi
InstallMissing "${buildPackages[@]}" "${testPackages[@]}" "${machinePackages[@]}"
Build debug tests-real-port
FetchKernel
MakeImage
Say "Starting the virtual machine ..."
RunMachine || Say "The virtual machine did not end by itself."
result=$(sed -n 's/^The tests ended with \([0-9]*\)\.$/\1/p' "$log")
[ -n "$result" ] || Say "The tests did not get to their end."
exit "${result:-1}"

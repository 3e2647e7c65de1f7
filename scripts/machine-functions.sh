# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the scripts that run tests in a virtual PC with Debian's kernel. They set `machine`, a
# folder below build/ for its files, `modules`, the kernel's drivers that it needs, and `program`,
# what runs in it, and call RunInMachine with the options of qemu.
# shellcheck shell=bash disable=SC2154

# DownloadKernel FOLDER: the package that linux-image-amd64 stands for today. As root apt would
# otherwise warn that its own user may not write there.
DownloadKernel() {
    local package
    package=$(apt-cache depends linux-image-amd64 | awk '/Depends:/ { print $2; exit }')
    (cd "$1" && apt-get -qq -o APT::Sandbox::User=root download "$package")
}

# Leaves the kernel's image and the modules in the machine's folder.
FetchKernel() {
    local kernel=$machine/kernel fetched=$machine/fetched module wanted=('./boot/vmlinuz-*')
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

# The virtual machine's whole file system: a shell, the modules, the program and its libraries.
MakeImage() {
    local root=$machine/root library
    rm -rf "$root"
    mkdir -p "$root"/{bin,sbin,usr/bin,usr/sbin,dev,etc,proc,sys}
    cp -r "$machine/kernel/lib" "$root/lib"
    cp "$(command -v busybox)" "$root/bin/busybox"
    busybox depmod -b "$root" "$(ls "$root/lib/modules")"
    strip -o "$root/bin/$program" "build/machine/bin/$program"
    # A static program has none.
    { ldd "build/machine/bin/$program" 2>/dev/null | grep -o '/[^ ]*' || true; } |
        while read -r library; do
            mkdir -p "$root$(dirname "$library")"
            cp -L "$library" "$root$library"
        done
    printf '%s\n' 'root:x:0:0::/:/bin/sh' 'nobody:x:65534:65534::/:/bin/sh' >"$root/etc/passwd"
    printf '%s\n' 'root:x:0:' 'lp:x:7:' 'nogroup:x:65534:' >"$root/etc/group"
    cat >"$root/init" <<INIT
#!/bin/busybox sh
/bin/busybox --install -s
mount -t devtmpfs dev /dev
mount -t proc proc /proc
mount -t sysfs sys /sys
GTEST_COLOR=no $program
echo "The tests ended with \$?."
poweroff -f
INIT
    chmod +x "$root/init"
    (cd "$root" && find . | busybox cpio -o -H newc 2>/dev/null) | gzip -1 >"$machine/initramfs.gz"
}

# RunInMachine OPTION...: fails when a test does, or when the machine does not get to the tests' end.
# Emulated, for a machine that is itself virtual.
RunInMachine() {
    local log=$machine/guest.log result
    if ! command -v apt-get >/dev/null; then
        Say "The kernel comes from Debian's packages: this needs apt-get and dpkg-deb."
        return 1
    fi
    InstallMissing "${buildPackages[@]}" "${testPackages[@]}" "${machinePackages[@]}"
    Build machine "$program"
    FetchKernel
    MakeImage
    Say "Starting the virtual machine ..."
    timeout --foreground 180 qemu-system-x86_64 -M pc -accel tcg -m 256 \
        -kernel "$machine"/kernel/boot/vmlinuz-* -initrd "$machine/initramfs.gz" \
        -append "console=ttyS0 quiet panic=-1" \
        -nodefaults -display none -no-reboot -serial stdio "$@" </dev/null |
        sed -u 's/\r$//' | tee "$log" || Say "The virtual machine did not end by itself."
    result=$(sed -n 's/^The tests ended with \([0-9]*\)\.$/\1/p' "$log")
    [ -n "$result" ] || Say "The tests did not get to their end."
    return "${result:-1}"
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PortWords.h"

namespace vx3260 {
namespace {

struct Words {
    std::string_view name;
    std::string_view printerPort;
    std::string_view lines;  ///< "<DIN>" stands for the line of that signal, "<>" for all
};

constexpr Words allWords[] = {
    {"{cable}", "cable", "wires (<>)"},
    {"{the port}", "the printer port", "the wires: <>"},
    {"{this port}", "this printer port", "these lines: <>"},
    {"{which port}", "which printer port it is on", "the wires: <>"},
    {"{the claimed}", "the printer port", "the lines"},
    {"{No port}", "No printer port", "No lines"},
    {"{listed port}", "at which printer port it is on (\"vx3260-cli ports\" lists them)",
     "at the wires (<>)"},
    {"{right port}", "whether the cable is plugged in at the right port",
     "whether the wires are on the right pins"},
    {"{other user}", "for another program on the same port", "at the level shifting"},
    {"{RESET}", "RESET (data bit 1)", "RESET (<RESET>)"},
    {"{DOUT}", "DOUT (status bit 4)", "DOUT (<DOUT>)"},
    {"{SCLK and DIN}", "SCLK and DIN (data bits 3 and 0)", "SCLK (<SCLK>) and DIN (<DIN>)"},
    {"{SCLK, DIN}", "SCLK, DIN (data bits 3 and 0)", "SCLK (<SCLK>), DIN (<DIN>)"},
    {"{data-ready line}", "data-ready line", "data-ready line (<RDY>)"},
};

void Replace(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

}  // namespace

std::string WiringText(const ParallelPort& port) {
    std::string text;
    for (const WiredSignal& wire : port.Wiring()) {
        text += (text.empty() ? "" : ", ") + wire.signal + " on " + wire.line;
    }
    return text;
}

std::string InPortWords(std::string_view message, const ParallelPort& port) {
    const std::vector<WiredSignal> wiring = port.Wiring();
    std::string text(message);
    for (const Words& words : allWords) {
        Replace(text, words.name, wiring.empty() ? words.printerPort : words.lines);
    }
    for (const WiredSignal& wire : wiring) {
        Replace(text, "<" + wire.signal + ">", wire.line);
    }
    Replace(text, "<>", WiringText(port));
    return text;
}

}  // namespace vx3260

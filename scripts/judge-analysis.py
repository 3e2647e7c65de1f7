#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the figures that vx3260-cli computes of made blocks with those of numpy and scipy. The
argument is the path of vx3260-cli. Run by scripts/judge-analysis.sh."""

import csv
import io
import json
import subprocess
import sys
import tempfile

import numpy as np
import scipy.signal
import scipy.stats

RELATIVE = 1e-9
RATE = 19.787439613526570
# Of a figure that is nearly zero because larger ones cancel: in parts of the largest one beside it.
CANCELLED = 1e-13


def main_block(codes):
    return Block("main", ["--range", "7", "--polarity", "bipolar"], codes, 2.56 * 2 / 2**24)


def aux_block(codes):
    return Block("aux", ["--full-scale", "full", "--polarity", "unipolar"], codes, 2.5 / 2**16)


class Block:
    def __init__(self, converter, conditions, codes, volts):
        self.converter = converter
        self.conditions = conditions
        self.codes = np.asarray(codes, dtype=float)
        self.volts = volts  # of one code

    def run(self, command, *options):
        with tempfile.NamedTemporaryFile("w", suffix=".dat") as file:
            file.writelines(f"{int(code)}\n" for code in self.codes)
            file.flush()
            words = [sys.argv[1], command, self.converter, file.name, *self.conditions, "--force"]
            return subprocess.run(
                words + list(options), check=True, capture_output=True, text=True
            ).stdout


def blocks():
    source = np.random.default_rng(3260)
    mains = 40 * np.sin(2 * np.pi * 50 / RATE * np.arange(5000))
    walk = np.cumsum(source.normal(0, 3, 32767))
    return {
        "two readings": main_block([8388600, 8388611]),
        "seven readings": main_block(source.integers(8388600, 8388620, 7)),
        "white noise": main_block(np.rint(source.normal(8438977, 12, 5000))),
        "white noise and mains": main_block(np.rint(source.normal(8438977, 12, 5000) + mains)),
        "random walk": main_block(np.rint(8000000 + walk)),
        "drift": main_block(np.rint(np.arange(1000) * 3.7 + source.normal(100000, 5, 1000))),
        "full scale": main_block(source.choice([0, 2**24 - 1], 300)),
        "16 bits": aux_block(np.rint(source.normal(40000, 1.5, 200))),
        "equal codes": aux_block([1234] * 50),
    }


class Judge:
    def __init__(self):
        self.figures = 0
        self.faults = []

    def compare(self, what, found, expected):
        found = np.asarray(found, dtype=float)
        expected = np.asarray(expected, dtype=float)
        self.figures += expected.size
        if found.shape != expected.shape:
            self.faults.append(f"{what}: {found.size} figures, expected {expected.size}")
            return
        limit = RELATIVE * np.abs(expected) + CANCELLED * np.max(np.abs(expected), initial=0)
        for i in np.flatnonzero(~(np.abs(found - expected) <= limit)):
            self.faults.append(f"{what}, figure {i}: {found[i]!r}, expected {expected[i]!r}")


def columns(text, names):
    rows = list(csv.reader(io.StringIO(text)))
    assert rows[0] == names, rows[0]
    return np.asarray(rows[1:], dtype=float).reshape(-1, len(names)).T


def judge_spectrum(judge, name, block):
    for segment in (None, 2, 7, 64, 1000, 4096):
        if segment and segment > len(block.codes):
            continue
        for trend, detrend in (("mean", "constant"), ("linear", "linear")):
            options = ["--segment", str(segment)] if segment else []
            text = block.run(
                "spectrum", "--rate", repr(RATE), "--trend", trend, "--format", "csv", *options
            )
            frequency, volts, lsb = columns(
                text, ["frequency_hz", "density_v_per_rthz", "density_lsb_per_rthz"]
            )
            length = segment or 2 * (len(frequency) - 1)
            if length not in (segment, len(block.codes)) and length & (length - 1):
                length = len(block.codes)
            # Of raw codes scipy's least squares would lose digits to the mean.
            expected_frequency, power = scipy.signal.welch(
                block.codes - np.rint(np.mean(block.codes)), RATE, "hann", nperseg=length, detrend=detrend, scaling="density"
            )
            what = f"{name}, spectrum, segments of {length}, {trend}"
            # What is left of a trend that is the whole segment, of which scipy leaves roundings.
            density = np.sqrt(power)
            density[density < CANCELLED * np.max(block.codes)] = 0
            judge.compare(what + ", frequency", frequency, expected_frequency)
            judge.compare(what + ", V", volts, density * block.volts)
            judge.compare(what + ", LSB", lsb, density)


def allan(codes, factor):
    phase = np.concatenate(([0.0], np.cumsum(codes - np.rint(np.mean(codes)))))
    second = phase[2 * factor :] - 2 * phase[factor:-factor] + phase[: -2 * factor]
    return np.sqrt(np.mean(second**2) / 2) / factor


def limits(count, factor):
    n, m = count + 1, factor
    freedom = (3 * (n - 1) / (2 * m) - 2 * (n - 2) / n) * 4 * m**2 / (4 * m**2 + 5)
    return np.sqrt(freedom / scipy.stats.chi2.ppf([0.975, 0.025], freedom))


def judge_stability(judge, name, block):
    for taus in ("octave", "decade", "all"):
        if taus == "all" and len(block.codes) > 1000:
            continue
        text = block.run("stability", "--rate", repr(RATE), "--taus", taus, "--format", "csv")
        names = ["tau_s", "deviation_v", "low_v", "high_v", "deviation_lsb"]
        tau, volts, low, high, lsb = columns(text, names)
        factors = [int(factor) for factor in np.rint(tau * RATE)]
        deviation = np.array([allan(block.codes, factor) for factor in factors])
        ratio = np.array([limits(len(block.codes), factor) for factor in factors])
        what = f"{name}, stability, {taus}"
        judge.compare(what + ", time", tau, np.array(factors) / RATE)
        judge.compare(what + ", V", volts, deviation * block.volts)
        judge.compare(what + ", low", low, deviation * ratio[:, 0] * block.volts)
        judge.compare(what + ", high", high, deviation * ratio[:, 1] * block.volts)
        judge.compare(what + ", LSB", lsb, deviation)


def judge_noise(judge, name, block):
    if not 10 <= len(block.codes) <= 5000:
        return
    values = json.loads(block.run("noise", "--format", "json"))["values"]
    codes = block.codes
    freedom = len(codes) - 1
    sigma = np.std(codes, ddof=1)
    expected = {
        "meanCodes": np.mean(codes),
        "sigmaCodes": sigma,
        "sigmaVolts": sigma * block.volts,
        "sigmaCodesLow": sigma * np.sqrt(freedom / scipy.stats.chi2.ppf(0.975, freedom)),
        "sigmaCodesHigh": sigma * np.sqrt(freedom / scipy.stats.chi2.ppf(0.025, freedom)),
    }
    if sigma > 0:
        # Codes of millions leave scipy's mean, and a skewness of nearly 0, too few digits.
        near = codes - np.rint(np.mean(codes))
        deviations = near - np.mean(near)
        products = np.sum(deviations[1:] * deviations[:-1])
        expected["skewness"] = scipy.stats.skew(near)
        expected["excessKurtosis"] = scipy.stats.kurtosis(near)
        expected["lag1Autocorrelation"] = products / np.sum(deviations**2)
        if values.get("normalityTest") == "dagostino-pearson":
            expected["normalityP"] = scipy.stats.normaltest(near).pvalue
    for key, value in expected.items():
        if values.get(key) is not None:
            judge.compare(f"{name}, noise, {key}", [values[key]], [value])


def main():
    judge = Judge()
    made = blocks()
    for name, block in made.items():
        judge_spectrum(judge, name, block)
        judge_stability(judge, name, block)
        judge_noise(judge, name, block)
    print(
        f"{judge.figures} figures of spectrum, stability and noise of {len(made)} blocks compared "
        f"with numpy {np.__version__} and scipy {scipy.__version__}, to {RELATIVE:g}"
    )
    for fault in judge.faults[:20]:
        print(fault, file=sys.stderr)
    if judge.faults:
        sys.exit(f"{len(judge.faults)} figures differ.")


main()

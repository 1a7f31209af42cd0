#!/usr/bin/python3
"""Makes the audio files that tests read: audio_corpus.py FOLDER

Every file is made anew by a real encoder (lame, twolame, ffmpeg), so that what we read of it can be held against what
the encoder was asked for. FOLDER/asked.json keeps that: file name -> facts that the options of the encoder fix.
"""

import json
import os
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

from mutagen.apev2 import APEv2
from mutagen.id3 import APIC, COMM, ID3, TALB, TIT2, TPE1

SECONDS = 3
RATES = (44100, 48000, 32000, 22050, 24000, 16000, 11025, 12000, 8000)
# What lame and twolame write unless told otherwise.
PLAIN = {"crc": False, "copyrighted": False, "original": True, "emphasis": "None"}
TITLES = ("-metadata", "title=Title", "-metadata", "artist=Artist", "-metadata", "album=Album")


def run(*command):
    subprocess.run([str(word) for word in command], check=True, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)


def make_source(wav, rate):
    # Noise, then a tone: a varying rate has something to vary on.
    left = "0.3*sin(440*2*PI*t)+lt(t,1.2)*0.4*(random(0)-0.5)"
    right = "0.3*sin(550*2*PI*t)+lt(t,1.2)*0.4*(random(1)-0.5)"
    sound = f"aevalsrc='{left}|{right}':s={rate}:d={SECONDS}".replace("lt(t,", r"lt(t\,")
    run("ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", sound, "-bitexact", wav)


def lame(*options, rate=44100, **asked):
    return lambda sources, out: run("lame", "--quiet", *options, sources[rate], out), {**PLAIN, **asked}


def twolame(*options, rate=44100, **asked):
    return lambda sources, out: run("twolame", "--quiet", *options, sources[rate], out), {**PLAIN, **asked}


def ffmpeg(*options, rate=44100, **asked):
    return (lambda sources, out: run("ffmpeg", "-v", "error", "-y", "-i", sources[rate], "-bitexact", *options, out),
            asked)


def content(data, **asked):
    def write(_, out):
        with open(out, "wb") as file:
            file.write(data)
    return write, asked


def layer_1_frames(head, length, count):
    """Frames of layer I in which no sample has bits: digital silence."""
    return (head + bytes(length - len(head))) * count


MPEG = {
    "cbr_128.mp3": lame("-b", 128, mode="Joint Stereo", bitrate="128"),
    "cbr_320.mp3": lame("-b", 320, bitrate="320"),
    "cbr_40_count_does_not_fit.mp3": lame("-b", 40, "-m", "s", "--resample", "44.1", bitrate="40", mode="Stereo"),
    "cbr_stereo.mp3": lame("-b", 160, "-m", "s", bitrate="160", mode="Stereo"),
    "cbr_dual.mp3": lame("-b", 192, "-m", "d", bitrate="192", mode="Dual Channel"),
    "cbr_mono.mp3": lame("-b", 64, "-m", "m", bitrate="64", mode="Mono"),
    "cbr_48000.mp3": lame("-b", 128, rate=48000, bitrate="128"),
    "cbr_32000.mp3": lame("-b", 96, rate=32000, bitrate="96"),
    "cbr_without_count.mp3": lame("-t", "-b", 128, bitrate="128"),
    "cbr_crc.mp3": lame("-b", 128, "-p", crc=True, bitrate="128"),
    "cbr_emphasis_50.mp3": lame("-b", 128, "-e", "5", emphasis="50/15"),
    "cbr_emphasis_ccitt.mp3": lame("-b", 128, "-e", "c", emphasis="CCITT"),
    "cbr_copyright.mp3": lame("-b", 128, "-c", copyrighted=True),
    "cbr_copy.mp3": lame("-b", 128, "-o", original=False),
    "vbr_v2.mp3": lame("-V", 2),
    "vbr_v7.mp3": lame("-V", 7),
    "vbr_mono.mp3": lame("-V", 4, "-m", "m", mode="Mono"),
    "vbr_old.mp3": lame("--vbr-old", "-V", 4),
    "vbr_crc.mp3": lame("-V", 2, "-p", crc=True),
    "vbr_without_count.mp3": lame("-t", "-V", 2),
    "vbr_66_seconds.mp3": ffmpeg("-af", f"aloop=21:{16000 * SECONDS}", "-c:a", "libmp3lame", "-q:a", "7", rate=16000),
    "abr_140.mp3": lame("--abr", 140),
    "mpeg2_cbr.mp3": lame("-b", 64, rate=22050, bitrate="64"),
    "mpeg2_mono.mp3": lame("-b", 48, "-m", "m", rate=24000, bitrate="48", mode="Mono"),
    "mpeg2_vbr.mp3": lame("-V", 4, rate=16000),
    "mpeg25_8000.mp3": lame("-b", 16, rate=8000, bitrate="16"),
    "mpeg25_11025.mp3": lame("-V", 4, rate=11025),
    "mpeg25_12000_mono.mp3": lame("-b", 24, "-m", "m", rate=12000, bitrate="24", mode="Mono"),
    "ffmpeg_cbr.mp3": ffmpeg("-c:a", "libmp3lame", "-b:a", "128k", bitrate="128"),
    "ffmpeg_cbr_32.mp3": ffmpeg("-c:a", "libmp3lame", "-b:a", "32k", rate=22050, bitrate="32"),
    "ffmpeg_vbr.mp3": ffmpeg("-c:a", "libmp3lame", "-q:a", "3"),
    "layer2_192.mp3": twolame("-b", 192, "-m", "s", mode="Stereo", bitrate="192"),
    "layer2_mono.mp3": twolame("-b", 96, "-m", "m", "-a", mode="Mono", bitrate="96"),
    "layer2_joint.mp3": twolame("-b", 128, "-m", "j", mode="Joint Stereo", bitrate="128"),
    "layer2_dual.mp3": twolame("-b", 224, "-m", "d", mode="Dual Channel", bitrate="224"),
    "layer2_crc.mp3": twolame("-b", 192, "-p", crc=True, bitrate="192"),
    "layer2_copyright.mp3": twolame("-b", 192, "-c", "-o", copyrighted=True, original=False),
    "layer2_emphasis.mp3": twolame("-b", 192, "-e", "5", emphasis="50/15"),
    "layer2_mpeg2.mp3": twolame("-b", 80, rate=22050, bitrate="80"),
    "layer2_ffmpeg.mp3": ffmpeg("-c:a", "mp2", "-f", "mp2", "-b:a", "256k", bitrate="256"),
    "layer1_32000.mp3": content(layer_1_frames(b"\xff\xff\x48\x04", 4 * (12 * 128000 // 32000), 250),
                                bitrate="128", mode="Stereo", **PLAIN),
    "layer1_mpeg2.mp3": content(layer_1_frames(b"\xff\xf7\x54\xc4", 4 * (12 * 80000 // 24000), 188),
                                bitrate="80", mode="Mono", **PLAIN),
}

OTHER = {
    "pcm_16_stereo.wav": ffmpeg("-c:a", "pcm_s16le"),
    "pcm_16_mono.wav": ffmpeg("-c:a", "pcm_s16le", "-ac", 1),
    "pcm_8_mono.wav": ffmpeg("-c:a", "pcm_u8", "-ac", 1, rate=8000),
    "pcm_24_stereo.wav": ffmpeg("-c:a", "pcm_s24le", rate=48000),
    "song.ogg": ffmpeg("-c:a", "libvorbis", *TITLES),
    "song.wma": ffmpeg("-c:a", "wmav2", *TITLES),
    "song.vqf": content(b"TWIN97012000" + bytes(500)),
    "empty.mp3": content(b""),
}


def add_tags(path, long):
    tags = ID3()
    tags.add(TIT2(encoding=3, text="Title"))
    tags.add(TPE1(encoding=3, text="Artist"))
    tags.add(TALB(encoding=3, text="Album"))
    tags.add(COMM(encoding=3, lang="eng", desc="", text="Comment"))
    if long:
        # Looks like many frame headers.
        tags.add(APIC(encoding=3, mime="image/jpeg", type=3, desc="cover", data=b"\xff\xd8\xff\xfb\x90\x64" * 20000))
    tags.save(path, v1=2, v2_version=3)


def add_ape(path):
    tags = APEv2()
    tags["Title"] = "Title"
    tags["Comment"] = "comment " * 500
    tags.save(path)


def main(folder):
    scratch = os.path.join(folder, "sources")
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(scratch)
    sources = {rate: os.path.join(scratch, f"{rate}.wav") for rate in RATES}
    asked = {}
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(lambda rate: make_source(sources[rate], rate), RATES))
        files = {**MPEG, **OTHER}
        list(pool.map(lambda name: files[name][0](sources, os.path.join(folder, name)), files))
    for name, (_, facts) in files.items():
        asked[name] = facts
    for name in MPEG:
        tagged = "tagged_" + name
        shutil.copy(os.path.join(folder, name), os.path.join(folder, tagged))
        add_tags(os.path.join(folder, tagged), long=name < "l")
        if "without_count" in name:
            add_ape(os.path.join(folder, tagged))
        asked[tagged] = asked[name]
    shutil.rmtree(scratch)
    with open(os.path.join(folder, "asked.json"), "w", encoding="utf-8") as file:
        json.dump(asked, file, indent=1)


if __name__ == "__main__":
    main(sys.argv[1])

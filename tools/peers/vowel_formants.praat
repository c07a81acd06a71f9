# vowel_formants.praat - finds the middles of vowels in a recording and measures their formants.
# usage: praat --run vowel_formants.praat FILE CEILING_HZ MAXIMUM_FORMANTS
# One row for each syllable nucleus: its time in ms, F1 to F5 in Hz (Burg's method, 25 ms).
# A nucleus is a voiced maximum of intensity, within 25 dB of the loudest (99 % quantile) and 2 dB
# above the dips to both sides (N. de Jong, T. Wempe, "Praat script to detect syllable nuclei and
# measure speech rate automatically", 2009); of the band from 400 to 4000 Hz, in which nasals are
# weak. No formant has a part in finding it.
form: "Vowels"
  text: "file", ""
  real: "ceiling", "5500"
  real: "maximum_formants", "5"
endform

sound = Read from file: file$
pitch = noprogress To Pitch: 0, 75, 500
selectObject: sound
band = Filter (pass Hann band): 400, 4000, 100
intensity = noprogress To Intensity: 50, 0, "yes"
loudest = Get quantile: 0, 0, 0.99
selectObject: sound
formants = noprogress To Formant (burg): 0, maximum_formants, ceiling, 0.025, 50

selectObject: intensity
frames = Get number of frames
writeInfoLine: "time_ms", tab$, "F1", tab$, "F2", tab$, "F3", tab$, "F4", tab$, "F5"
# The highest frame since the last dip, and the lowest since the last nucleus.
top = -1000
topFrame = 0
dip = 1000
risen = 0
for i to frames
  selectObject: intensity
  level = Get value in frame: i
  if level > top
    top = level
    topFrame = i
  endif
  if level < dip
    dip = level
    if not risen
      top = level
      topFrame = i
    endif
  endif
  if level >= dip + 2
    risen = 1
  endif
  if risen and level <= top - 2
    @nucleus: topFrame, top
    top = level
    topFrame = i
    dip = level
    risen = 0
  endif
endfor

procedure nucleus: .frame, .level
  selectObject: intensity
  .time = Get time from frame number: .frame
  selectObject: pitch
  .hz = Get value at time: .time, "Hertz", "linear"
  if .level >= loudest - 25 and .hz <> undefined
    selectObject: formants
    .row$ = fixed$ (.time * 1000, 2)
    for .f to 5
      .value = Get value at time: .f, .time, "hertz", "linear"
      .row$ = .row$ + tab$ + if .value = undefined then "-" else fixed$ (.value, 1) fi
    endfor
    appendInfoLine: .row$
  endif
endproc

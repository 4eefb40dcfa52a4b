;; Suffixes, wire numbers, wire formats and gaps.

;; Let the user edit a list of suffixes in one text, with commas; the new text, or nil.
(defun c:ryv_cfg_component_suffix_dlg (suffixes)
  (ryp-ask-text "component_suffixes" "component-suffixes" suffixes))

(defun c:ryv_cfg_wirenum_suffix_dlg (suffixes)
  (ryp-ask-text "wire_suffixes" "wire-suffixes" suffixes))

;; Lets the user edit the names of wire properties; the new text, or nil.
(defun ryv_rename_wire_properties (properties)
  (ryp-ask-text "wire_properties" "wire-properties" properties))

;; Lets the user edit wire formats by layer, "LAYER=FORMAT;LAYER=FORMAT" with room for two more; the parts
;; that are not empty, one empty one when there is no other, or nil when the user cancels.
(defun kq_proja_do_wfmt_bylay_setup (setting / formats)
  (if (setq formats
        (ryp-ask-texts "wire_formats" "wire-formats" "wire-format" (append (ryp-split setting ";") '("" ""))))
    (cond ((vl-remove "" formats)) ('("")))))

;; Default gaps of wire numbers.
(defun kq_kqp_get_dwg_WNUM_GAP_settings () "0.0,0.0,0.0")

;; 1 when a text can be a catalogue value: not empty, and without quotes and wildcards; else 0.
(defun kq_proja_cat_legit (value)
  (if (or (= (ryp-trim value) "") (wcmatch value "*\"*,*`**,*`?*")) 0 1))

;; The gaps of text blocks in line with wires. Without `present` they are given as they stand, otherwise
;; the user edits the given ones; a list of reals, or nil.
(defun kq_strblk_inline_gap_su (present unused)
  (mapcar 'atof
    (if present
      (ryp-ask-texts "inline_gap" "inline-gap" "gap" (mapcar 'vl-princ-to-string present))
      (ryp-split (kq_kqp_get_dwg_WNUM_GAP_settings) ","))))

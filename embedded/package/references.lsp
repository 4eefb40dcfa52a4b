;; Cross-references: defaults and set-ups.

;; Defaults of the table of cross-references: which fields are shown, the names of all, and how they are
;; aligned.
(defun kq_xref_tbl_indexlst () "1,2,3,5")
(defun kq_xref_tbl_fldnams () "W1,T1,TYPE,T2,W2,REF,SH,SHDWGNAM,FILENAME,FULLFILENAM")
(defun kq_xref_tbl_jstlst () "MC,MC,MC,MC,MC,MC,MC,MC,L,L")

;; The set-ups show the given values and give as many back; nil when the user cancels.
(defun c:kq_xref_setup_graphical (values)
  (ryp-ask-values "xref_graphical" "references-graphical"
    (append
      '(("graphic" ("1" . "graphic-contact-map") ("0" . "graphic-from-style")) ("graphic-style") ("contact-map"))
      (ryp-reference-options))
    values))

(defun c:kq_xref_setup_table (values)
  (ryp-ask-values "xref_table" "references-table"
    (append
      '(("table-style") ("table-title") ("table-shown") ("table-fields") ("table-alignment") ("contact-map"))
      (ryp-reference-options)
      '(("format-same") ("format-other")))
    values))

(defun c:kq_xref_setup_text (values)
  (ryp-ask-values "xref_text" "references-text" (cons '("text-between") (ryp-reference-options)) values))

;; What all of them ask for: whether references are sorted, whether unused contacts show a text, the text,
;; and the style of these contacts.
(defun ryp-reference-options ()
  '(("references-sort" . 1) ("references-flags" . 1) ("references-fill") ("unused-style")))

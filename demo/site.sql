-- A made-up housing company, so far as no screen makes it: a dozen residents with their addresses,
-- what two of the doors let them do since days gone by, and some messages of the past days. The
-- doors themselves are typed into the program's own screens (DoorRoad.cpp). Who is on the third
-- door only its unit knows (units.txt): "Hent BRUKERE" brings them here.
BEGIN;
INSERT INTO Katalog (Bruker, BrukerKort, Etternavn, Fornavn, Gate, Postnummer, Poststed, Tillatelser) VALUES
 ('+4791000011', '91000011', 'Aasen',      'Ingrid',  'Solbakken 12', '0000', 'Eksempelby', '2'),
 ('+4791000012', '91000012', 'Bakke',      'Øystein', 'Solbakken 12', '0000', 'Eksempelby', '2'),
 ('+4791000013', '91000013', 'Dahl',       'Kari',    'Solbakken 12', '0000', 'Eksempelby', '2'),
 ('+4791000014', '91000014', 'Eide',       'Jonas',   'Solbakken 12', '0000', 'Eksempelby', '1'),
 ('+4791000015', '91000015', 'Fjeld',      'Åse',     'Solbakken 12', '0000', 'Eksempelby', '1'),
 ('+4791000016', '91000016', 'Gran',       'Per',     'Solbakken 14', '0000', 'Eksempelby', '1'),
 ('+4791000017', '91000017', 'Hagen',      'Marit',   'Solbakken 14', '0000', 'Eksempelby', '0'),
 ('+4791000018', '91000018', 'Iversen',    'Nils',    'Solbakken 14', '0000', 'Eksempelby', '0'),
 ('+4791000019', '91000019', 'Lund',       'Sofie',   'Solbakken 14', '0000', 'Eksempelby', '0'),
 ('+4791000020', '91000020', 'Moen',       'Trygve',  'Solbakken 14', '0000', 'Eksempelby', '0'),
 ('+46700000021', '700000021', 'Sjöberg',  'Lena',    'Solbakken 14', '0000', 'Eksempelby', '1'),
 ('+4791000022', '91000022', 'Vaktmester', 'Firma',   'Verkstedveien 1', '0000', 'Eksempelby', '2');

INSERT INTO TBLbrukere (KeyBruker, KeyNummer, "Gyldig fra", FraTid, "Gyldig til", TilTid, Konto, Saldo, Status) VALUES
 ('+4791000011', '+4790000001', '1/3/2026',  '00', '31/12/2099', '24', 'Beboer', '0', 'Aktiv '),
 ('+4791000012', '+4790000001', '1/3/2026',  '00', '31/12/2099', '24', 'Beboer', '0', 'Aktiv '),
 ('+4791000013', '+4790000001', '15/4/2026', '00', '31/12/2099', '24', 'Beboer', '0', 'Aktiv '),
 ('+4791000014', '+4790000001', '1/9/2026',  '00', '31/12/2099', '24', 'Beboer', '0', 'Aktiv '),
 ('+4791000015', '+4790000001', '12/10/2026','08', '31/1/2027',  '16', 'Gjest',  '0', 'Aktiv '),
 ('+46700000021','+4790000001', '2/11/2026', '00', '31/12/2099', '24', 'Saldo',  '18', 'Aktiv '),
 ('+4791000022', '+4790000001', '1/3/2026',  '06', '31/12/2099', '18', 'ADMIN-2','0', 'Aktiv A2'),
 ('+4791000011', '+4790000002', '1/3/2026',  '00', '31/12/2099', '24', 'Beboer', '0', 'Aktiv '),
 ('+4791000012', '+4790000002', '1/3/2026',  '00', '31/12/2099', '24', 'Beboer', '0', 'Aktiv '),
 ('+4791000013', '+4790000002', '15/4/2026', '00', '31/12/2099', '24', 'Beboer', '0', 'Aktiv '),
 ('+4791000016', '+4790000002', '1/6/2026',  '00', '31/12/2099', '24', 'Beboer', '0', 'Aktiv '),
 ('+4791000022', '+4790000002', '1/3/2026',  '06', '31/12/2099', '18', 'ADMIN-2','0', 'Aktiv A2');

INSERT INTO SMS_Received (FraNummer, FraNummerKort, Etternavn, Fornavn, Dato, SMS_Text) VALUES
 ('+4791000014', '91000014', 'Eide', 'Jonas', '26/11/18,17:42:10+04', 'Hei, jeg har mistet telefonen. Kan dere sperre nummeret mitt?'),
 ('+4790000001', '90000001', 'Hovedport', ' ', '26/11/19,09:03:55+04', 'Hovedport' || char(13) || char(10) || '91000015 er lagt til' || char(13) || char(10) || 'FRA : 12/10-2026 08:00' || char(13) || char(10) || 'TIL : 31/01-2027 16:00');
COMMIT;
